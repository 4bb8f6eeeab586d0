#pragma once

#include <QByteArrayView>
#include <QString>

/// The text that UTF-8 spells, for display: bytes that are none are shown as U+FFFD. A byte-order mark at its beginning
/// is a part of it: these bytes name a file, and nobody put a mark there to tell their order.
QString decodedText(QByteArrayView utf8);

/// Two texts are one in this form whether an accent is composed with its letter, as it is typed, or stands behind it, as
/// in the names of files that come from a Mac.
QString canonicalForm(QStringView text);

/// Whether UTF-8 consists of ASCII alone, as nearly every name of a disk does: that can be spelled in one way only.
bool isAscii(QByteArrayView utf8);

/// A file's name in the canonical form of the text that it spells; unchanged when it is not UTF-8, for decoded, different
/// names would look the same. For comparing: the file has the name that it has.
QByteArray canonicalFileName(QByteArrayView fileName);

/// Two texts are one in this form whatever their case, too: bundle identifiers are compared so. The rules are the same in
/// every language.
QString caselessForm(QStringView text);
