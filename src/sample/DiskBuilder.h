#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// Makes files, folders and links of a disk that lies in a folder of this computer. Keeps the first failure,
/// worded for the user, and does nothing after it.
class DiskBuilder
{
public:
    /// "~" in front of a path stands for `home`, a path on the disk.
    DiskBuilder(QString folder, QString home);

    void makeFolder(const QString &path);

    /// A file that occupies `size` bytes, all of them zero; they are allocated, not written.
    void allocateFile(const QString &path, qint64 size);

    void writeFile(const QString &path, const QByteArray &content);

    /// `target` is relative: the disk can be moved.
    void makeLink(const QString &path, const QString &target);

    /// Empty when there was none.
    const QString &error() const { return m_error; }

private:
    QString hostPath(const QString &path) const;
    bool open(QFile &file, const QString &path);

    QString m_folder;
    QString m_home;
    QString m_error;
};
