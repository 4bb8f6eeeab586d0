#include "PropertyList.h"

#include "BinaryPropertyListReader.h"
#include "BundleBudget.h"
#include "TextPropertyListReader.h"
#include "XmlPropertyListReader.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

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

/// The encoding that XML declares for itself, as it is written there; empty when it declares none. UTF of any width is
/// left to the bytes: where the declaration can be read as it is, they are not wide.
QByteArray declaredEncoding(QByteArrayView data)
{
    constexpr qsizetype longestDeclaration = 256;
    const auto start = data.trimmed();
    if (!start.startsWith("<?xml"))
        return {};
    const auto declaration = QString::fromLatin1(start.first(std::min(longestDeclaration, start.size())));
    static const QRegularExpression encoding(QStringLiteral(R"(^[^>]*\sencoding\s*=\s*["']([^"'>]+)["'])"));
    const auto name = encoding.match(declaration).captured(1);
    return name.startsWith(u"utf", Qt::CaseInsensitive) ? QByteArray() : name.toLatin1();
}

std::optional<QString> decoded(QByteArrayView bytes, QStringDecoder &&decoder)
{
    QString text = decoder(bytes);
    return decoder.isValid() && !decoder.hasError() ? std::optional(std::move(text)) : std::nullopt;
}

/// The text in `data`, without a mark; absent when it is not in the encoding that it seems to be in.
std::optional<QString> textIn(QByteArrayView data)
{
    constexpr auto flags = QStringConverter::Flag::Stateless;
    for (const auto &mark : marks) {
        if (data.startsWith(mark.bytes))
            return decoded(data.sliced(mark.bytes.size()), QStringDecoder(mark.encoding, flags));
    }
    if (const auto name = declaredEncoding(data); !name.isEmpty())
        return decoded(data, QStringDecoder(name.constData(), flags));
    return decoded(data, QStringDecoder(unmarkedEncoding(data), flags));
}

} // namespace

std::optional<QVariant> readPropertyList(const QByteArray &data, BundleBudget &budget)
{
    if (data.isEmpty() || data.size() > BundleBudget::largestList)
        return std::nullopt;
    budget.beginList();
    if (data.startsWith("bplist0"))
        return BinaryPropertyListReader(data, budget).read();
    const auto text = textIn(data);
    if (!text)
        return std::nullopt;
    // Bytes as text are "<0fbd 77>": the one text form that begins like XML.
    if (QStringView(*text).trimmed().startsWith(u'<')) {
        if (auto value = XmlPropertyListReader(*text, budget).read())
            return value;
    }
    return TextPropertyListReader(*text, budget).read();
}

std::optional<QVariantMap> readPropertyListFile(const FileSystem &fileSystem, const Url &url, BundleBudget &budget)
{
    const auto data = budget.readFile(fileSystem, url, BundleBudget::largestList);
    if (!data)
        return std::nullopt;
    const auto value = readPropertyList(*data, budget);
    if (!value || value->typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return value->toMap();
}
