#pragma once

#include "PropertyListBudget.h"

#include <QVariant>
#include <QXmlStreamReader>

#include <optional>

/// Reads one property list in its XML form. Values as `readPropertyList` describes them.
class XmlPropertyListReader
{
public:
    /// `text` is what the file holds, decoded: the encoding that it declares for itself is not asked.
    explicit XmlPropertyListReader(const QString &text) : m_xml(text) { }

    /// To be called once.
    std::optional<QVariant> read();

private:
    std::optional<QVariant> value(int depth);
    std::optional<QVariant> list(int depth);
    std::optional<QVariant> dictionary(int depth);

    QXmlStreamReader m_xml;
    PropertyListBudget m_budget;
};
