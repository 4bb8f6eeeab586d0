#pragma once

#include "FileDescriptor.h"

#include <QByteArray>

/// A path of this computer in the form that system calls take, however long it is: the kernel refuses one of 4,096
/// bytes or more, so the front of a longer one is opened first. Links on the way are followed as ever.
class ReachablePath
{
public:
    explicit ReachablePath(QByteArray path);

    /// The two first arguments of openat and its like. A path whose front leads nowhere leads nowhere.
    int directory() const;
    const char *path() const { return m_path.constData() + m_start; }

private:
    QByteArray m_path;
    FileDescriptor m_front;
    qsizetype m_start = 0;
};
