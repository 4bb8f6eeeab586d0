#pragma once

#include "BundleBudget.h"

#include <QStringView>
#include <QVariant>

#include <optional>

/// Reads one property list in its text form, which knows texts, lists, dictionaries and bytes, and ".strings"
/// files: the pairs of a dictionary without its braces. Values as `readPropertyList` describes them.
class TextPropertyListReader
{
public:
    /// `text` and `budget` outlive the reader.
    TextPropertyListReader(QStringView text, BundleBudget &budget) : m_text(text), m_budget(budget) { }

    /// To be called once. A text of blanks and comments only is an empty dictionary.
    std::optional<QVariant> read();

private:
    std::optional<QVariant> value(int depth);
    std::optional<QVariant> list(int depth);
    std::optional<QVariant> bytes();
    /// Pairs up to `closing`, which stays, or up to the end where that is null.
    std::optional<QVariant> pairs(QChar closing, int depth);
    std::optional<QString> string();
    std::optional<QString> quotedString();
    char16_t escapedCharacter();

    /// The next character that is neither blank nor in a comment, left where it is; null at the end.
    QChar next();
    bool isReadToTheEnd();
    /// Takes the next such character if it is `character`.
    bool take(QChar character);
    bool atEnd() const { return m_position >= m_text.size(); }
    /// Up to `most` digits of a number to the base of `base`, a power of two.
    char16_t digits(int most, int base);

    QStringView m_text;
    qsizetype m_position = 0;
    BundleBudget &m_budget;
};
