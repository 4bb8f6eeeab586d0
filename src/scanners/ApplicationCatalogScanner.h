#pragma once

#include "ApplicationReader.h"

#include <QList>

#include <optional>

class BundleReader;
class FileSystem;

/// Lists the applications installed in the application folders. Stateless; safe to call from any thread.
class ApplicationCatalogScanner
{
public:
    ApplicationCatalogScanner(const FileSystem &fileSystem, const BundleReader &bundleReader);

    /// All applications directly inside the application folders, by name. Blocks while every bundle is measured.
    QList<InstalledApplication> scanApplications() const;

    /// The first of `applications` whose name, file name without extension or identifier `query` spells out in
    /// full, whatever the case; absent when none does.
    static std::optional<InstalledApplication> findApplication(const QString &query,
                                                               const QList<InstalledApplication> &applications);

private:
    const FileSystem &m_fileSystem;
    ApplicationReader m_applicationReader;
};
