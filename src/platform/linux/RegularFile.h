#pragma once

#include "DiskRoot.h"
#include "FileDescriptor.h"

#include <QByteArray>

#include <optional>

/// The regular file at `url`, opened for reading, links followed. Not open where there is anything else: a pipe or a
/// device is not waited for, nor touched where it lies there from the beginning.
FileDescriptor openRegularFile(const DiskRoot &disk, const Url &url);

/// The bytes of `file` from `offset` on, at most `maximumLength`, whatever size the file claims; fewer where it ends
/// earlier. Absent when it is not open or cannot be read, and for an offset below zero.
std::optional<QByteArray> readPart(const FileDescriptor &file, qint64 offset, qint64 maximumLength);
