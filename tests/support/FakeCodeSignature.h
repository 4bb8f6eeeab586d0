#pragma once

#include "CodeSignature.h"

#include <QHash>

/// Answers the entitlements that a test gave to a bundle; any other bundle is not signed.
class FakeCodeSignature : public CodeSignature
{
public:
    void add(const Url &bundle, const QVariantMap &entitlements) { m_entitlements.insert(bundle, entitlements); }

    std::optional<QVariantMap> entitlements(const Url &bundle) const override
    {
        const auto found = m_entitlements.constFind(bundle);
        return found == m_entitlements.constEnd() ? std::nullopt : std::optional(*found);
    }

private:
    QHash<Url, QVariantMap> m_entitlements;
};
