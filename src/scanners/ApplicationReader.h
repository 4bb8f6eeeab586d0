#pragma once

#include "InstalledApplication.h"

#include <optional>

class BundleReader;
class FileSystem;

/// Which application a bundle is, wherever its location comes from. Stateless; safe to call from any thread.
class ApplicationReader
{
public:
    ApplicationReader(const FileSystem &fileSystem, const BundleReader &bundleReader);

    /// The application whose bundle lies at `url`; absent when its name does not end in ".app" (in any case), when
    /// it is no bundle, and when it has no identifier. Blocks while the bundle is measured.
    std::optional<InstalledApplication> applicationAt(const Url &url, bool isSystemApplication) const;

    /// The same, its size being left at 0.
    std::optional<InstalledApplication> unmeasuredApplicationAt(const Url &url, bool isSystemApplication) const;

    /// Whether what lies at the standardised `url` belongs to the operating system.
    static bool isInSystemFolder(const Url &url) { return url.path().startsWith("/System/"); }

private:
    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
};
