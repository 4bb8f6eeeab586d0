#pragma once

#include "BundleReader.h"

#include <QHash>
#include <QList>

/// Opens the bundles that a test made known to it.
class FakeBundleReader : public BundleReader
{
public:
    void add(const Url &url, const QVariantMap &information) { m_bundles.insert(url.standardized(), information); }
    /// The bundles' pictures, and whose were read.
    QHash<Url, QByteArray> pictures;
    mutable QList<Url> picturesRead;
    void setMainBundleUrl(const Url &url) { m_mainBundleUrl = url; }

    std::optional<Bundle> open(const Url &url) const override
    {
        const auto information = m_bundles.constFind(url.standardized());
        return information == m_bundles.constEnd() ? std::nullopt : std::optional(Bundle(*information));
    }
    QByteArray iconData(const Url &url) const override
    {
        picturesRead.append(url);
        return pictures.value(url);
    }
    Url mainBundleUrl() const override { return m_mainBundleUrl; }

private:
    QHash<Url, QVariantMap> m_bundles;
    Url m_mainBundleUrl{"/Applications/Tarnvale.app"};
};
