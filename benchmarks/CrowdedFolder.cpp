// Scans of a folder with a million entries against the bare loop, and the memory that they take at most.

#include "BareLoop.h"
#include "BenchDisk.h"
#include "JunkScanner.h"
#include "LinuxFileSystem.h"
#include "MediaScanner.h"
#include "SideBySide.h"

#include <sys/resource.h>

namespace {

/// Of this process, so far.
double peakMebibytes()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

} // namespace

std::vector<Figure> crowdedFolder(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.crowd(), BenchDisk::home(), {});
    const JunkScanner junk(fileSystem);
    const MediaScanner media(fileSystem);
    const auto path = disk.crowd().hostPath(BenchDisk::caches());

    const auto before = peakMebibytes();
    const auto times =
        sideBySide(3, {[&] { BareLoop().measure(path); }, [&] { junk.scanCachesAndLogs(1); },
                       [&] { media.scanMediaFiles(BenchDisk::caches(), {MediaCategory::video}, 50'000); }});
    const auto ratio = [](double value) { return QStringLiteral("%1 ×").arg(value, 0, 'f', 2); };
    return {
        {"a million entries in one folder: cache and log scan / bare loop", ratio(times[1]), {}},
        {"a million entries in one folder: media scan / bare loop", ratio(times[2]), {}},
        {"a million entries in one folder: memory beyond the peak so far",
         QStringLiteral("%1 MiB").arg(peakMebibytes() - before, 0, 'f', 1),
         {}},
    };
}
