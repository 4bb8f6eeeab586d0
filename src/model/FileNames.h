#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

/// The text that a file's name or path spells; absent when it is not UTF-8. Unlike one that is decoded for display,
/// such a name is equal to no text.
std::optional<QString> decodedFileName(QByteArrayView fileName);

/// Whether a file can have this name and a path that ends in it leads nowhere else: not empty, neither "." nor
/// "..", without "/" and bytes of value zero.
bool isFileName(QByteArrayView name);

/// The bytes of a file's name that spells `text`; empty, which is no file's name, when no file can spell it.
QByteArray encodedFileName(QStringView text);
