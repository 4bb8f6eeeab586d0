#pragma once

#include "CodeSignature.h"

class FileSystem;

/// Reads the signatures of bundles on the disk that `fileSystem` shows.
class DiskCodeSignature : public CodeSignature
{
public:
    /// `fileSystem` outlives it.
    explicit DiskCodeSignature(const FileSystem &fileSystem) : m_fileSystem(fileSystem) { }

    std::optional<QVariantMap> entitlements(const Url &bundle) const override;

private:
    const FileSystem &m_fileSystem;
};
