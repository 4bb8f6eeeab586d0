#include "SignedProgram.h"

#include <QXmlStreamWriter>
#include <QtEndian>

#include <utility>

namespace {

template <typename Integer> QByteArray integer(Integer number, QSysInfo::Endian order = QSysInfo::BigEndian)
{
    const auto ordered = order == QSysInfo::BigEndian ? qToBigEndian(number) : qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char *>(&ordered), sizeof ordered);
}

quint32 size32(const QByteArray &bytes)
{
    return static_cast<quint32>(bytes.size());
}

void writeXml(QXmlStreamWriter &xml, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap: {
        xml.writeStartElement(QStringLiteral("dict"));
        for (const auto &[key, element] : value.toMap().toStdMap()) {
            xml.writeTextElement(QStringLiteral("key"), key);
            writeXml(xml, element);
        }
        xml.writeEndElement();
        break;
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        xml.writeStartElement(QStringLiteral("array"));
        for (const auto &element : value.toList())
            writeXml(xml, element);
        xml.writeEndElement();
        break;
    case QMetaType::Bool:
        xml.writeEmptyElement(value.toString());
        break;
    case QMetaType::LongLong:
        xml.writeTextElement(QStringLiteral("integer"), value.toString());
        break;
    default:
        xml.writeTextElement(QStringLiteral("string"), value.toString());
    }
}

QByteArray xmlForm(const QVariantMap &entitlements)
{
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("plist"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    writeXml(xml, entitlements);
    xml.writeEndDocument();
    return text;
}

QByteArray derElement(unsigned char tag, const QByteArray &content)
{
    QByteArray element(1, static_cast<char>(tag));
    if (content.size() < 0x80)
        element.append(static_cast<char>(content.size()));
    else
        element.append('\x84').append(integer(size32(content)));
    return element + content;
}

QByteArray derForm(const QVariant &value)
{
    QByteArray content;
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        for (const auto &[key, element] : value.toMap().toStdMap())
            content += derElement(0x30, derForm(key) + derForm(element));
        return derElement(0xb0, content);
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        for (const auto &element : value.toList())
            content += derForm(element);
        return derElement(0x30, content);
    case QMetaType::Bool:
        return derElement(0x01, QByteArray(1, value.toBool() ? '\xff' : '\0'));
    case QMetaType::LongLong:
        return derElement(0x02, integer(value.toLongLong()));
    default:
        return derElement(0x0c, value.toString().toUtf8());
    }
}

// A part of a signature: its number in the index, and its bytes with their magic number and length in front.
using Part = std::pair<quint32, QByteArray>;

Part part(quint32 slot, quint32 magic, const QByteArray &content)
{
    return {slot, integer(magic) + integer(size32(content) + 8) + content};
}

QByteArray signature(const SignedProgram &program)
{
    // Signatures begin with what the program requires of others: here nothing.
    QList<Part> parts{part(2, 0xfade0c01, integer(quint32(0)))};
    if (program.xmlEntitlements)
        parts.append(part(5, 0xfade7171, xmlForm(*program.xmlEntitlements)));
    if (program.derEntitlements) {
        const auto versioned = derElement(0x02, QByteArray(1, '\1')) + derForm(*program.derEntitlements);
        parts.append(part(7, 0xfade7172, derElement(0x70, versioned)));
    }
    QByteArray index;
    QByteArray contents;
    for (const auto &[slot, bytes] : parts) {
        index += integer(slot) + integer(static_cast<quint32>(12 + 8 * parts.size()) + size32(contents));
        contents += bytes;
    }
    return integer(quint32(0xfade0cc0)) + integer(12 + size32(index) + size32(contents))
           + integer(static_cast<quint32>(parts.size())) + index + contents;
}

} // namespace

QByteArray SignedProgram::file() const
{
    const bool isSigned = xmlEntitlements || derEntitlements;
    const bool isLong = wordSize == WordSize::bits64;
    const auto blob = isSigned ? signature(*this) : QByteArray();
    // A command of nothing but its head, one that names the program's identity, and the one that says where the signature
    // is.
    constexpr quint32 emptyCommand = 0x2b;
    constexpr quint32 identityCommand = 0x1b;
    constexpr quint32 signatureCommand = 0x1d;
    const quint32 headerSize = isLong ? 32 : 28;
    const quint32 commandSize = 8 + 24 + (isSigned ? 16 : 0);
    constexpr quint32 arm64 = 0x0100000c;
    constexpr quint32 i386 = 7;
    constexpr quint32 executable = 2;

    QList<quint32> words{isLong ? 0xfeedfacf : 0xfeedface,
                         isLong ? arm64 : i386,
                         0,
                         executable,
                         isSigned ? 3u : 2u,
                         commandSize,
                         0};
    if (isLong)
        words.append(0);
    words += {emptyCommand, 8, identityCommand, 24, 0, 0, 0, 0};
    if (isSigned)
        words += {signatureCommand, 16, headerSize + commandSize, size32(blob)};
    QByteArray file;
    for (const auto word : words)
        file += integer(word, byteOrder);
    return file + blob;
}

QByteArray universalFile(const QList<QByteArray> &programs, WordSize wordSize, QSysInfo::Endian byteOrder)
{
    const bool isLong = wordSize == WordSize::bits64;
    constexpr qsizetype alignment = 4096;
    auto file = integer(quint32(isLong ? 0xcafebabf : 0xcafebabe), byteOrder)
                + integer(static_cast<quint32>(programs.size()), byteOrder);
    QByteArray contents;
    for (const auto &program : programs) {
        const auto offset = alignment + contents.size();
        file += program.mid(4, 8);
        if (isLong)
            file += integer(static_cast<quint64>(offset), byteOrder)
                    + integer(static_cast<quint64>(program.size()), byteOrder);
        else
            file += integer(static_cast<quint32>(offset), byteOrder) + integer(size32(program), byteOrder);
        file += integer(quint32(12), byteOrder);
        if (isLong)
            file += integer(quint32(0));
        contents += program.leftJustified((program.size() / alignment + 1) * alignment, '\0');
    }
    return file.leftJustified(alignment, '\0') + contents;
}
