#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

/// Reads up to `length` bytes of a file from `offset` on; fewer where the file ends earlier or cannot be read.
using ByteSource = std::function<QByteArray(qint64 offset, qint64 length)>;

/// A part of a file, as the file claims it: it may reach beyond the end.
struct ByteRange
{
    /// From the beginning of the file.
    qint64 offset = 0;
    qint64 length = 0;
};

/// Where a Mach-O program keeps its code signatures: one at most for each processor that it was built for, in the
/// file's order. Thin and universal files of 32 and 64 bits and of both byte orders. Empty for anything else, and
/// what is damaged is left out. Reads headers only.
QList<ByteRange> codeSignatures(const ByteSource &file);
