#pragma once

#include <QByteArray>
#include <QList>
#include <QSysInfo>
#include <QVariantMap>

#include <optional>

enum class WordSize { bits32, bits64 };

/// A small Mach-O program whose signature holds entitlements. It has no code, so nothing can run it.
struct SignedProgram
{
    /// Texts, booleans, integers (qint64), lists and maps. Absent is not in the signature.
    std::optional<QVariantMap> xmlEntitlements;
    std::optional<QVariantMap> derEntitlements;
    WordSize wordSize = WordSize::bits64;
    QSysInfo::Endian byteOrder = QSysInfo::LittleEndian;

    /// The program's file. Without entitlements of either form it is not signed.
    QByteArray file() const;
};

/// The file of one program for several processors; `wordSize` is that of the offsets in its table, and `byteOrder` the
/// table's.
QByteArray universalFile(const QList<QByteArray> &programs, WordSize wordSize,
                         QSysInfo::Endian byteOrder = QSysInfo::BigEndian);
