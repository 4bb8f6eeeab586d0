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

std::optional<QString> decoded(QByteArrayView data)
{
    auto encoding = unmarkedEncoding(data);
    for (const auto &mark : marks) {
        if (data.startsWith(mark.bytes)) {
            data = data.sliced(mark.bytes.size());
            encoding = mark.encoding;
            break;
        }
    }
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder(data);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace

std::optional<QVariant> readPropertyList(const QByteArray &data)
{
    if (data.isEmpty() || data.size() > PropertyListBudget::largestFile)
        return std::nullopt;
    if (data.startsWith("bplist0"))
        return BinaryPropertyListReader(data).read();
    const auto text = decoded(data);
    if (!text)
        return std::nullopt;
    // Bytes as text are "<0fbd 77>": the one text form that begins like XML.
    if (QStringView(*text).trimmed().startsWith(u'<')) {
        if (auto value = XmlPropertyListReader(*text).read())
            return value;
    }
    return TextPropertyListReader(*text).read();
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
