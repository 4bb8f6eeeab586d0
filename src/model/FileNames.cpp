#include "FileNames.h"

#include "Spelling.h"

std::optional<QString> decodedFileName(QByteArrayView fileName)
{
    return QUtf8StringView(fileName).isValidUtf8() ? std::optional(decodedText(fileName)) : std::nullopt;
}

bool isFileName(QByteArrayView name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\0');
}

QByteArray encodedFileName(QStringView text)
{
    return text.isValidUtf16() ? text.toUtf8() : QByteArray();
}
