#include "PropertyList.h"

#include "BinaryPropertyListReader.h"
#include "FileSystem.h"
#include "PropertyListBudget.h"
#include "TextPropertyListReader.h"
#include "XmlPropertyListReader.h"

#include <QStringDecoder>

namespace {

struct Mark
{
    QByteArrayView bytes;
    QStringConverter::Encoding encoding;
};
constexpr Mark marks[] = {
    {"\xef\xbb\xbf", QStringConverter::Utf8},
    {"\xff\xfe", QStringConverter::Utf16LE},
    {"\xfe\xff", QStringConverter::Utf16BE},
};

// Every text form begins with an ASCII character, so without a mark the first zero byte tells UTF-16 and its
// order.
QStringConverter::Encoding unmarkedEncoding(QByteArrayView data)
{
    if (data.size() < 2 || (data[0] == 0) == (data[1] == 0))
        return QStringConverter::Utf8;
    return data[0] == 0 ? QStringConverter::Utf16BE : QStringConverter::Utf16LE;
}

std::optional<QString> decoded(QByteArrayView bytes, QStringConverter::Encoding encoding)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

/// The text `data` in UTF-8, without a mark. What is in UTF-8 already is not looked at.
std::optional<QByteArray> withoutMarkInUtf8(const QByteArray &data)
{
    auto encoding = unmarkedEncoding(data);
    qsizetype start = 0;
    for (const auto &mark : marks) {
        if (data.startsWith(mark.bytes)) {
            start = mark.bytes.size();
            encoding = mark.encoding;
            break;
        }
    }
    if (encoding == QStringConverter::Utf8)
        return start == 0 ? data : data.sliced(start);
    const auto text = decoded(QByteArrayView(data).sliced(start), encoding);
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

} // namespace

std::optional<QVariant> readPropertyList(const QByteArray &data)
{
    if (data.isEmpty() || data.size() > PropertyListBudget::largestFile)
        return std::nullopt;
    if (data.startsWith("bplist0"))
        return BinaryPropertyListReader(data).read();
    const auto utf8 = withoutMarkInUtf8(data);
    if (!utf8)
        return std::nullopt;
    // Bytes as text are "<0fbd 77>": the one text form that begins like XML.
    if (QByteArrayView(*utf8).trimmed().startsWith('<')) {
        if (auto value = XmlPropertyListReader(*utf8).read())
            return value;
    }
    const auto text = decoded(*utf8, QStringConverter::Utf8);
    return text ? TextPropertyListReader(*text).read() : std::nullopt;
}

std::optional<QVariantMap> readPropertyListFile(const FileSystem &fileSystem, const Url &url)
{
    const auto data = fileSystem.readFile(url, PropertyListBudget::largestFile);
    if (!data)
        return std::nullopt;
    const auto value = readPropertyList(*data);
    if (!value || value->typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return value->toMap();
}
