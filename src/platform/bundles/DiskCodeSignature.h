#pragma once

#include "CodeSignature.h"

#include <stop_token>
#include <utility>

class FileSystem;

/// Reads the signatures of bundles on the disk that `fileSystem` shows.
class DiskCodeSignature : public CodeSignature
{
public:
    /// Nothing is read any more once `stop` is requested. `fileSystem` outlives it.
    explicit DiskCodeSignature(const FileSystem &fileSystem, std::stop_token stop = {})
        : m_fileSystem(fileSystem), m_stop(std::move(stop))
    {
    }

    std::optional<QVariantMap> entitlements(const Url &bundle) const override;

private:
    const FileSystem &m_fileSystem;
    const std::stop_token m_stop;
};
