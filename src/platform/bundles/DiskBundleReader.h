#pragma once

#include "BundleReader.h"

#include <QStringList>

class FileSystem;
struct BundleLayout;

/// Reads bundles from the disk that `fileSystem` shows.
class DiskBundleReader : public BundleReader
{
public:
    /// `preferredLanguages` are tags such as "pl-PL", the user's first choice first. `fileSystem` outlives the
    /// reader.
    DiskBundleReader(const FileSystem &fileSystem, QStringList preferredLanguages);

    std::optional<Bundle> open(const Url &url) const override;
    Url mainBundleUrl() const override;

private:
    QVariantMap localizedInformation(const BundleLayout &layout, const QString &developmentRegion) const;

    const FileSystem &m_fileSystem;
    QStringList m_preferredLanguages;
};
