#pragma once

#include "BundleBudget.h"
#include "XmlCursor.h"

#include <QVariant>

#include <optional>

/// Reads one property list in its XML form. Values as `readPropertyList` describes them.
class XmlPropertyListReader
{
public:
    /// `text` and `budget` outlive the reader.
    XmlPropertyListReader(QStringView text, BundleBudget &budget) : m_xml(text), m_budget(budget) { }

    /// To be called once.
    std::optional<QVariant> read();

private:
    // Each is given the tag that was just taken.
    std::optional<QVariant> value(const XmlCursor::Tag &tag, int depth);
    std::optional<QVariant> list(const XmlCursor::Tag &tag, int depth);
    std::optional<QVariant> dictionary(const XmlCursor::Tag &tag, int depth);
    std::optional<QString> text(const XmlCursor::Tag &tag);

    XmlCursor m_xml;
    BundleBudget &m_budget;
};
