#include "BareLoop.h"

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

qint64 BareLoop::measure(const QByteArray &path) const
{
    const int folder = open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return folder < 0 ? 0 : measureOpen(folder);
}

qint64 BareLoop::measureOpen(int folder) const
{
    alignas(dirent64) char listing[32 * 1024];
    qint64 total = 0;
    for (ssize_t size; (size = getdents64(folder, listing, sizeof listing)) > 0;) {
        for (ssize_t offset = 0; offset < size;) {
            const auto *entry = reinterpret_cast<const dirent64 *>(listing + offset);
            offset += entry->d_reclen;
            if (entry->d_name[0] == '.')
                continue;
            if (entry->d_type == DT_DIR) {
                const int child = openat(folder, entry->d_name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
                if (child >= 0)
                    total += measureOpen(child);
                continue;
            }
            struct stat status;
            const QByteArrayView name(entry->d_name, static_cast<qsizetype>(std::strlen(entry->d_name)));
            if ((!m_isWanted || m_isWanted(name))
                && fstatat(folder, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
                total += status.st_blocks * 512;
        }
    }
    close(folder);
    return total;
}
