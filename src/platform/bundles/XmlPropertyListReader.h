#pragma once

#include "PropertyListBudget.h"

#include <QBuffer>
#include <QVariant>
#include <QXmlStreamReader>

#include <optional>

/// Reads one property list in its XML form. Values as `readPropertyList` describes them.
class XmlPropertyListReader
{
public:
    /// `text` is in UTF-8, whatever encoding it declares for itself.
    explicit XmlPropertyListReader(const QByteArray &text);

    /// To be called once.
    std::optional<QVariant> read();

private:
    std::optional<QVariant> value(int depth);
    std::optional<QVariant> list(int depth);
    std::optional<QVariant> dictionary(int depth);

    // Text that comes from a device is decoded piece by piece, not all at once.
    QBuffer m_text;
    QXmlStreamReader m_xml;
    PropertyListBudget m_budget;
};
