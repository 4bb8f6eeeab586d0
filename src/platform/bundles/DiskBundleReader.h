#pragma once

#include "BundleReader.h"

#include <QStringList>

#include <stop_token>

class BundleBudget;
class FileSystem;
struct BundleLayout;

/// Reads bundles from the disk that `fileSystem` shows.
class DiskBundleReader : public BundleReader
{
public:
    /// `preferredLanguages` are tags such as "pl-PL", the user's first choice first. `mainBundleUrl` is where our own
    /// bundle is; whoever never asks for it may leave it out. Nothing is read any more once `stop` is requested. `fileSystem`
    /// outlives the reader.
    DiskBundleReader(const FileSystem &fileSystem, QStringList preferredLanguages, Url mainBundleUrl = {},
                     std::stop_token stop = {});

    std::optional<Bundle> open(const Url &url) const override;
    QByteArray iconData(const Url &url) const override;
    Url mainBundleUrl() const override { return m_mainBundleUrl; }

private:
    QVariantMap localizedInformation(const BundleLayout &layout, const QString &developmentRegion,
                                     BundleBudget &budget) const;

    const FileSystem &m_fileSystem;
    const QStringList m_preferredLanguages;
    const Url m_mainBundleUrl;
    const std::stop_token m_stop;
};
