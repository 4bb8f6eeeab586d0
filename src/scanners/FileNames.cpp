#include "FileNames.h"

std::optional<QString> decodedFileName(QByteArrayView fileName)
{
    const QUtf8StringView text(fileName);
    return text.isValidUtf8() ? std::optional(text.toString()) : std::nullopt;
}

bool isFileName(QByteArrayView name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\0');
}

QByteArray encodedFileName(QStringView text)
{
    return text.isValidUtf16() ? text.toUtf8() : QByteArray();
}
