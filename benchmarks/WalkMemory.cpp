// The memory that walks take at most, in a tree of two million files.

#include "AllocatedSize.h"
#include "BareLoop.h"
#include "BenchDisk.h"
#include "Enumerations.h"
#include "Figure.h"
#include "LinuxFileSystem.h"
#include "MediaScanner.h"

#include <QFile>

#include <algorithm>
#include <malloc.h>

namespace {

/// Of this process, from the row of this name in its status.
double mebibytes(QByteArrayView row)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("this process has no status");
    for (const auto &line : file.readAll().split('\n')) {
        if (line.startsWith(row))
            return line.mid(row.size()).chopped(2).trimmed().toDouble() / 1024;
    }
    qFatal("the status has no row of that name");
}

/// What `work` needs at most beyond what there is before it.
double mostTaken(const std::function<void()> &work)
{
    malloc_trim(0);
    QFile forget(QStringLiteral("/proc/self/clear_refs"));
    // 5 sets back the most that was ever held (man 5 proc).
    if (!forget.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || forget.write("5") != 1)
        qFatal("the most that was held cannot be set back");
    const auto before = mebibytes("VmRSS:");
    work();
    return mebibytes("VmHWM:") - before;
}

} // namespace

std::vector<Figure> walkMemory(const BenchDisk &disk)
{
    constexpr double most = 64;
    const LinuxFileSystem fileSystem(disk.multitude(), BenchDisk::home(), {});
    const auto path = disk.multitude().hostPath(BenchDisk::caches());
    if (allocatedSize(fileSystem, BenchDisk::caches()) != BareLoop().measure(path))
        qFatal("the walk and the bare loop disagree");
    const auto measuring = mostTaken([&] { allocatedSize(fileSystem, BenchDisk::caches()); });
    const auto finding = mostTaken([&] {
        const auto files = MediaScanner(fileSystem).scanMediaFiles(
            BenchDisk::caches(), {MediaCategory::video, MediaCategory::audio, MediaCategory::image}, 1000);
        if (files.size() != 1000)
            qFatal("the tree has too few pictures");
    });
    return {atMost("memory for measuring and finding among 2,000,000 files", std::max(measuring, finding), most,
                   QStringLiteral("MiB"))};
}
