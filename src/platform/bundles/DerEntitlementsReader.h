#pragma once

#include "BundleBudget.h"

#include <QByteArrayView>
#include <QVariant>

#include <optional>

/// Reads entitlements in the DER form that signatures keep beside or instead of a property list. Values as
/// `readPropertyList` describes them.
class DerEntitlementsReader
{
public:
    /// `data` and `budget` outlive the reader.
    DerEntitlementsReader(QByteArrayView data, BundleBudget &budget) : m_data(data), m_budget(budget) { }

    /// To be called once. Absent when it is damaged or costs more than the budget grants.
    std::optional<QVariantMap> read();

private:
    struct Element
    {
        unsigned char tag;
        QByteArrayView content;
    };
    /// Takes the first element off the front of `bytes`; absent when there is none or it is cut short.
    static std::optional<Element> take(QByteArrayView &bytes);

    std::optional<QVariant> value(const Element &element, int depth);
    std::optional<QVariant> list(QByteArrayView elements, int depth);
    std::optional<QVariant> dictionary(QByteArrayView pairs, int depth);

    QByteArrayView m_data;
    BundleBudget &m_budget;
};
