#include "ReachablePath.h"

#include <climits>
#include <fcntl.h>

ReachablePath::ReachablePath(QByteArray path) : m_path(std::move(path))
{
    while (m_path.size() - m_start >= PATH_MAX) {
        const auto separator = m_path.lastIndexOf('/', m_start + PATH_MAX - 2);
        // A single name of that length, or a front that does not exist: what is left is refused by the kernel.
        if (separator <= m_start)
            return;
        const auto front = m_path.mid(m_start, separator - m_start);
        FileDescriptor opened(uninterrupted(
            [&] { return openat(directory(), front.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
        if (!opened.isOpen())
            return;
        m_front = std::move(opened);
        m_start = separator + 1;
    }
}

int ReachablePath::directory() const
{
    return m_front.isOpen() ? m_front.number() : AT_FDCWD;
}
