#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// The small text files in which Linux tells about itself (/proc, /sys, /etc), beneath a root that tests can
/// replace. Any thread.
///
/// What such a file holds is not trusted: no more than 64 KiB of one are read and no more than 256 entries of a
/// folder, and nothing but a regular file is, opened so that a pipe or a device in its place is not waited for.
class SystemFiles
{
public:
    /// `root` is put in front of every path: empty for this computer, a folder without a trailing separator else.
    explicit SystemFiles(QByteArray root = {});

    /// The first 64 KiB; absent when there is no such file or it cannot be read.
    std::optional<QByteArray> read(const QByteArray &path) const;

    /// The text up to the first line break or zero, without the blanks around it; absent when that is empty or the
    /// file cannot be read. Bytes that are not UTF-8 become U+FFFD.
    std::optional<QString> line(const QByteArray &path) const;

    /// The whole number that the first line consists of; absent when it is something else.
    std::optional<qint64> number(const QByteArray &path) const;

    /// The names in a folder, sorted by their bytes, without "." and ".."; empty when it cannot be listed.
    QList<QByteArray> names(const QByteArray &folder) const;

private:
    QByteArray m_root;
};
