#include "MachO.h"

#include <QSysInfo>
#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <optional>

namespace {

/// Integers of one byte order.
class Integers
{
public:
    Integers(QByteArrayView bytes, QSysInfo::Endian order) : m_bytes(bytes), m_order(order) { }

    /// The integer `position` bytes in, which is inside of the bytes.
    quint32 at32(qsizetype position) const { return at<quint32>(position); }
    quint64 at64(qsizetype position) const { return at<quint64>(position); }

private:
    template <typename Integer> Integer at(qsizetype position) const
    {
        const auto *const bytes = m_bytes.sliced(position, sizeof(Integer)).data();
        return m_order == QSysInfo::BigEndian ? qFromBigEndian<Integer>(bytes) : qFromLittleEndian<Integer>(bytes);
    }

    QByteArrayView m_bytes;
    QSysInfo::Endian m_order;
};

enum class Width { bits32, bits64 };

struct Format
{
    quint32 magic;
    Width width;
    QSysInfo::Endian order;
};
// The magic numbers as they look when the first four bytes are taken as big-endian.
constexpr Format programFormats[] = {
    {0xfeedface, Width::bits32, QSysInfo::BigEndian},
    {0xfeedfacf, Width::bits64, QSysInfo::BigEndian},
    {0xcefaedfe, Width::bits32, QSysInfo::LittleEndian},
    {0xcffaedfe, Width::bits64, QSysInfo::LittleEndian},
};
constexpr Format universalFormats[] = {
    {0xcafebabe, Width::bits32, QSysInfo::BigEndian},
    {0xcafebabf, Width::bits64, QSysInfo::BigEndian},
    {0xbebafeca, Width::bits32, QSysInfo::LittleEndian},
    {0xbfbafeca, Width::bits64, QSysInfo::LittleEndian},
};

template <std::size_t count> const Format *formatOf(const Format (&formats)[count], QByteArrayView bytes)
{
    if (bytes.size() < 4)
        return nullptr;
    const auto *const format = std::ranges::find(formats, qFromBigEndian<quint32>(bytes.data()), &Format::magic);
    return format == std::end(formats) ? nullptr : format;
}

// Compiled Java begins with the same four bytes as a universal program, followed by a version from 45 on.
constexpr quint32 mostPrograms = 40;
constexpr quint32 largestCommands = 1024 * 1024;

/// The signature of the one program in the part `program` of the file.
std::optional<ByteRange> codeSignature(const ByteSource &file, ByteRange program)
{
    constexpr quint32 codeSignatureCommand = 0x1d;
    constexpr qsizetype commandHeader = 8;
    constexpr qsizetype longestHeader = 32;

    const auto header = file(program.offset, std::min<qint64>(longestHeader, program.length));
    const auto *const format = formatOf(programFormats, header);
    const qsizetype headerSize = format && format->width == Width::bits32 ? 28 : 32;
    if (!format || header.size() < headerSize)
        return std::nullopt;
    const Integers fields(header, format->order);
    const auto count = fields.at32(16);
    const auto size = std::min<qint64>({fields.at32(20), largestCommands, program.length - headerSize});

    const auto bytes = file(program.offset + headerSize, size);
    auto rest = QByteArrayView(bytes);
    for (quint32 i = 0; i < count && rest.size() >= commandHeader; ++i) {
        const Integers command(rest, format->order);
        const auto commandSize = command.at32(4);
        if (commandSize < commandHeader || commandSize > rest.size())
            return std::nullopt;
        if (command.at32(0) == codeSignatureCommand && commandSize >= 16) {
            const qint64 offset = command.at32(8);
            const qint64 length = command.at32(12);
            if (offset > program.length || length > program.length - offset)
                return std::nullopt;
            return ByteRange{program.offset + offset, length};
        }
        rest = rest.sliced(commandSize);
    }
    return std::nullopt;
}

/// The parts of the universal file that its head, `count` records behind the first eight bytes, describes.
QList<ByteRange> programs(const ByteSource &file, const Format &format, quint32 count)
{
    constexpr quint64 farthest = std::numeric_limits<qint64>::max();
    const qint64 recordSize = format.width == Width::bits64 ? 32 : 20;
    const auto bytes = file(8, recordSize * count);
    QList<ByteRange> programs;
    for (qsizetype at = 0; at + recordSize <= bytes.size(); at += recordSize) {
        const Integers record(QByteArrayView(bytes).sliced(at), format.order);
        const quint64 offset = format.width == Width::bits64 ? record.at64(8) : record.at32(8);
        const quint64 length = format.width == Width::bits64 ? record.at64(16) : record.at32(12);
        if (offset <= farthest && length <= farthest - offset)
            programs.append({static_cast<qint64>(offset), static_cast<qint64>(length)});
    }
    return programs;
}

} // namespace

QList<ByteRange> codeSignatures(const ByteSource &file)
{
    const auto head = file(0, 8);
    QList<ByteRange> parts;
    if (const auto *const universal = formatOf(universalFormats, head); universal && head.size() == 8) {
        const auto count = Integers(head, universal->order).at32(4);
        if (count <= mostPrograms)
            parts = programs(file, *universal, count);
    } else {
        parts.append({0, std::numeric_limits<qint64>::max()});
    }
    QList<ByteRange> signatures;
    for (const auto &part : parts) {
        if (const auto signature = codeSignature(file, part))
            signatures.append(*signature);
    }
    return signatures;
}
