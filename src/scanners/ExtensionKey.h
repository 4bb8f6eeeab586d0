#pragma once

#include <QByteArrayView>

#include <string_view>

/// A lowercase extension as one number, so that the many files of a scan are compared without making a text for
/// each. 0 for no extension and for one that is longer than eight bytes, which no table has.
constexpr quint64 extensionKey(std::string_view extension)
{
    if (extension.size() > sizeof(quint64))
        return 0;
    quint64 key = 0;
    for (const char c : extension)
        key = key << 8 | static_cast<unsigned char>(c);
    return key;
}

/// The key of a file name's extension, lowercased. The name is not a hidden file's, whose first dot begins no extension.
quint64 extensionKeyOf(QByteArrayView fileName);
