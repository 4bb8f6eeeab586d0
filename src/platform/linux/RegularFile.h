#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

#include <optional>

/// Opens what lies at `hostPath` on this computer, links followed and whatever the path's length, never as the
/// controlling terminal and never for a program that is started. Not open where that fails.
FileDescriptor openPath(const QByteArray &hostPath, int flags);

/// A regular file, opened for reading. Not open where there is anything else: a pipe or a device is not waited for,
/// nor touched where it lies there from the beginning.
FileDescriptor openRegularFile(const QByteArray &hostPath);

/// The bytes of `file` from `offset` on, at most `maximumLength`, whatever size the file claims; fewer where it ends
/// earlier. Absent when it is not open or cannot be read, and for an offset below zero.
std::optional<QByteArray> readPart(const FileDescriptor &file, qint64 offset, qint64 maximumLength);
