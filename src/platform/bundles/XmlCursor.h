#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Takes an XML document to pieces from front to end, as leniently as the Mac takes its property lists: a text may
/// hold any character, and attributes and the document type are passed over unread. Parsers of XML refuse such texts,
/// and take time without bound for many attributes.
///
/// Every piece costs what it is long, and what is cut short ends the document.
class XmlCursor
{
public:
    /// `document` outlives the cursor, and so do the names of its tags.
    explicit XmlCursor(QStringView document) : m_rest(document) { }

    struct Tag
    {
        QStringView name;
        /// Whether it closes itself.
        bool isEmpty;
    };

    /// The opening tag that comes next; blanks, comments, processing instructions and the document type in front of it
    /// are passed over. Absent, and left where it is, when something else comes next.
    std::optional<Tag> takeOpening();

    /// Takes the tag that closes `name`; false when something else comes next.
    bool takeClosing(QStringView name);

    /// The text up to the next tag; comments are no part of it. Absent when it is cut short, or refers to what is no
    /// character.
    std::optional<QString> takeText();

private:
    void skipUnread();
    void skipDocumentType();
    /// Goes on behind the first `end` that lies at least `from` characters in; to the end where there is none.
    void skipBehind(QStringView end, qsizetype from);
    bool take(QStringView text);
    bool takeCharacterData(QString &text);
    bool takeReference(QString &text);

    QStringView m_rest;
};
