#include "BinaryPropertyListReader.h"

#include <QDateTime>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace {

// The high half of the byte that an object begins with.
enum Type {
    singleton = 0x0,
    integer = 0x1,
    real = 0x2,
    date = 0x3,
    bytes = 0x4,
    asciiText = 0x5,
    utf16Text = 0x6,
    utf8Text = 0x7,
    archiveReference = 0x8,
    array = 0xa,
    orderedSet = 0xb,
    set = 0xc,
    dictionaryType = 0xd
};

constexpr qsizetype headerSize = 8;
constexpr qsizetype trailerSize = 32;

quint64 bigEndian(QByteArrayView bytes)
{
    quint64 number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// What is left of an object's bytes while they are taken one after another.
class Cursor
{
public:
    explicit Cursor(QByteArrayView bytes) : m_bytes(bytes) { }

    /// The next `count` bytes; absent when there are fewer.
    std::optional<QByteArrayView> take(quint64 count)
    {
        if (count > static_cast<quint64>(m_bytes.size()))
            return std::nullopt;
        const auto taken = m_bytes.first(static_cast<qsizetype>(count));
        m_bytes = m_bytes.sliced(taken.size());
        return taken;
    }

    /// The count that the low half of an object's first byte gives, or the integer behind it where it gives 15.
    std::optional<quint64> takeCount(int low)
    {
        if (low != 0xf)
            return static_cast<quint64>(low);
        const auto marker = take(1);
        if (!marker || bigEndian(*marker) >> 4 != integer || (bigEndian(*marker) & 0xf) > 3)
            return std::nullopt;
        const auto number = take(quint64(1) << (bigEndian(*marker) & 0xf));
        return number ? std::optional(bigEndian(*number)) : std::nullopt;
    }

private:
    QByteArrayView m_bytes;
};

std::optional<QVariant> singletonValue(int low)
{
    switch (low) {
    case 0x0:
        return QVariant();
    case 0x8:
        return QVariant(false);
    case 0x9:
        return QVariant(true);
    default:
        return std::nullopt;
    }
}

// Of 1, 2 and 4 bytes unsigned, of 8 signed, of 16 only for what 8 cannot hold.
std::optional<QVariant> integerValue(QByteArrayView bytes)
{
    const auto low = bigEndian(bytes.last(std::min<qsizetype>(bytes.size(), 8)));
    const auto high = bytes.size() == 16 ? bigEndian(bytes.first(8)) : 0;
    const bool isNegative = static_cast<qint64>(low) < 0;
    if (bytes.size() == 16 && high != (isNegative ? ~quint64(0) : 0)) {
        if (high != 0)
            return std::nullopt;
        return QVariant(low);
    }
    return QVariant(static_cast<qint64>(low));
}

std::optional<QVariant> realValue(QByteArrayView bytes)
{
    if (bytes.size() == 4)
        return QVariant(static_cast<double>(std::bit_cast<float>(static_cast<quint32>(bigEndian(bytes)))));
    if (bytes.size() == 8)
        return QVariant(std::bit_cast<double>(bigEndian(bytes)));
    return std::nullopt;
}

// Seconds since 2001 began. What no calendar reaches is no date.
std::optional<QVariant> dateValue(QByteArrayView bytes)
{
    constexpr double reference = 978'307'200;
    constexpr double farthest = 1e11;
    const auto seconds = std::bit_cast<double>(bigEndian(bytes));
    if (!(std::abs(seconds) < farthest))
        return std::nullopt;
    return QVariant(QDateTime::fromMSecsSinceEpoch(std::llround((seconds + reference) * 1000)).toUTC());
}

QString fromUtf16BigEndian(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes.data(), text.size(), text.data());
    return text;
}

} // namespace

std::optional<QVariant> BinaryPropertyListReader::read()
{
    if (m_data.size() < headerSize + trailerSize)
        return std::nullopt;
    const auto trailer = m_data.last(trailerSize);
    m_offsetSize = static_cast<unsigned char>(trailer[6]);
    m_referenceSize = static_cast<unsigned char>(trailer[7]);
    m_objectCount = bigEndian(trailer.sliced(8, 8));
    const auto root = bigEndian(trailer.sliced(16, 8));
    const auto offsetTable = bigEndian(trailer.sliced(24, 8));

    const auto end = static_cast<quint64>(m_data.size() - trailerSize);
    const auto isWidth = [](qsizetype size) { return size >= 1 && size <= 8; };
    if (!isWidth(m_offsetSize) || !isWidth(m_referenceSize) || offsetTable < headerSize || offsetTable > end
        || m_objectCount > (end - offsetTable) / static_cast<quint64>(m_offsetSize))
        return std::nullopt;
    m_offsetTable = static_cast<qsizetype>(offsetTable);
    m_unclaimedBytes = m_data.size();
    return object(root, 1);
}

std::optional<QVariant> BinaryPropertyListReader::object(quint64 index, int depth)
{
    if (!m_budget.spendValue(depth) || index >= m_objectCount)
        return std::nullopt;
    if (const auto known = m_leaves.constFind(index); known != m_leaves.constEnd())
        return *known;
    const auto offset =
        bigEndian(m_data.sliced(m_offsetTable + static_cast<qsizetype>(index) * m_offsetSize, m_offsetSize));
    if (offset < headerSize || offset >= static_cast<quint64>(m_offsetTable))
        return std::nullopt;

    const auto start = static_cast<qsizetype>(offset);
    const auto marker = static_cast<unsigned char>(m_data[start]);
    const int type = marker >> 4;
    const int low = marker & 0xf;
    Cursor cursor(m_data.sliced(start + 1, m_offsetTable - start - 1));
    // Of how many bytes the object's content is, where its first byte says so by itself.
    const auto width = [&] { return cursor.take(quint64(1) << low); };

    switch (type) {
    case singleton:
        return singletonValue(low);
    case integer:
        if (const auto content = low <= 4 ? width() : std::nullopt)
            return integerValue(*content);
        return std::nullopt;
    case real:
        if (const auto content = width())
            return realValue(*content);
        return std::nullopt;
    case date:
        if (const auto content = low == 3 ? width() : std::nullopt)
            return dateValue(*content);
        return std::nullopt;
    case archiveReference:
        if (const auto content = low < 8 ? cursor.take(static_cast<quint64>(low) + 1) : std::nullopt)
            return QVariantMap{{QStringLiteral("CF$UID"), static_cast<qint64>(bigEndian(*content))}};
        return std::nullopt;
    default:
        break;
    }

    const auto count = cursor.takeCount(low);
    if (!count || *count > static_cast<quint64>(m_data.size()))
        return std::nullopt;
    const auto references = [&](quint64 perElement) {
        return cursor.take(*count * perElement * static_cast<quint64>(m_referenceSize));
    };
    switch (type) {
    case bytes:
    case asciiText:
    case utf8Text:
    case utf16Text:
        if (const auto content = cursor.take(type == utf16Text ? *count * 2 : *count))
            return leaf(index, type, *content);
        return std::nullopt;
    case array:
    case orderedSet:
    case set:
        if (const auto elements = references(1))
            return list(*elements, depth);
        return std::nullopt;
    case dictionaryType:
        if (const auto keysAndValues = references(2))
            return dictionary(*keysAndValues, depth);
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<QVariant> BinaryPropertyListReader::leaf(quint64 index, int type, QByteArrayView content)
{
    if (content.size() > m_unclaimedBytes)
        return std::nullopt;
    m_unclaimedBytes -= content.size();
    const auto decoded = [&]() -> QVariant {
        switch (type) {
        case asciiText:
            return QString::fromLatin1(content);
        case utf8Text:
            return QString::fromUtf8(content);
        case utf16Text:
            return fromUtf16BigEndian(content);
        default:
            return content.toByteArray();
        }
    };
    return m_leaves.insert(index, decoded()).value();
}

std::optional<QVariant> BinaryPropertyListReader::list(QByteArrayView references, int depth)
{
    QVariantList list;
    for (qsizetype i = 0; i < references.size() / m_referenceSize; ++i) {
        auto element = object(reference(references, i), depth + 1);
        if (!element)
            return std::nullopt;
        list.append(std::move(*element));
    }
    return list;
}

// All keys come before all values.
std::optional<QVariant> BinaryPropertyListReader::dictionary(QByteArrayView references, int depth)
{
    QVariantMap dictionary;
    const auto count = references.size() / m_referenceSize / 2;
    for (qsizetype i = 0; i < count; ++i) {
        const auto key = object(reference(references, i), depth + 1);
        if (!key || key->typeId() != QMetaType::QString)
            return std::nullopt;
        auto element = object(reference(references, count + i), depth + 1);
        if (!element || !m_budget.spendKey(key->toString().size()))
            return std::nullopt;
        dictionary.insert(key->toString(), *element);
    }
    return dictionary;
}

quint64 BinaryPropertyListReader::reference(QByteArrayView references, qsizetype position) const
{
    return bigEndian(references.sliced(position * m_referenceSize, m_referenceSize));
}
