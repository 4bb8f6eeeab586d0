#include "FileNames.h"

#include "Spelling.h"

#include <algorithm>

std::optional<QString> decodedFileName(QByteArrayView fileName)
{
    const QUtf8StringView text(fileName);
    return text.isValidUtf8() ? std::optional(text.toString()) : std::nullopt;
}

bool isAscii(QByteArrayView fileName)
{
    return std::ranges::all_of(fileName, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

QByteArray canonicalFileName(QByteArrayView fileName)
{
    const auto text = isAscii(fileName) ? std::nullopt : decodedFileName(fileName);
    return text ? canonicalForm(*text).toUtf8() : fileName.toByteArray();
}

bool isFileName(QByteArrayView name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\0');
}

QByteArray encodedFileName(QStringView text)
{
    return text.isValidUtf16() ? text.toUtf8() : QByteArray();
}
