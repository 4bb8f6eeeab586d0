#pragma once

#include "BundleReader.h"

#include <QHash>

/// Opens the bundles that a test made known to it.
class FakeBundleReader : public BundleReader
{
public:
    void add(const Url &url, const QVariantMap &information) { m_bundles.insert(url.standardized(), information); }
    void setMainBundleUrl(const Url &url) { m_mainBundleUrl = url; }

    std::optional<Bundle> open(const Url &url) const override
    {
        const auto information = m_bundles.constFind(url.standardized());
        return information == m_bundles.constEnd() ? std::nullopt : std::optional(Bundle(*information));
    }
    Url mainBundleUrl() const override { return m_mainBundleUrl; }

private:
    QHash<Url, QVariantMap> m_bundles;
    Url m_mainBundleUrl{"/Applications/Tarnvale.app"};
};
