#pragma once

#include <QString>

/// `file`: decimal multiples (1,000), for files and disks. `memory`: binary multiples (1,024), for memory.
enum class ByteCountStyle { file, memory };

/// A byte count as a short text, such as "12 KB", "1.2 MB" or "16 GB". Kilobytes are whole, megabytes have at most
/// one decimal and larger units at most two; the decimal separator follows the system's locale. A negative count
/// keeps its sign.
QString formattedByteCount(qint64 bytes, ByteCountStyle style);
