// How long the scans go on once the program is told to quit, with caches as cold as they can be had.

#include "AllocatedSize.h"
#include "BenchDisk.h"
#include "JunkScanner.h"
#include "LinuxFileSystem.h"
#include "MediaScanner.h"
#include "SideBySide.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

/// Milliseconds from the request to the end of `scan`, begun a while before; the longest of some rounds.
double longestEnd(const DiskRoot &disk, const std::function<void(const FileSystem &)> &scan)
{
    double longest = 0;
    for (int round = 0; round < 3; ++round) {
        coldSideBySide(0, {});
        std::stop_source stop;
        const LinuxFileSystem fileSystem(disk, BenchDisk::home(), stop.get_token());
        std::jthread thread([&] { scan(fileSystem); });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        stop.request_stop();
        const auto start = Clock::now();
        thread.join();
        longest = std::max(longest, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    return longest;
}

} // namespace

std::vector<Figure> quitInTheMiddle(const BenchDisk &disk)
{
    constexpr double most = 100;
    const auto ms = QStringLiteral("ms");
    const auto media = [](const FileSystem &fileSystem) {
        MediaScanner(fileSystem).scanMediaFiles(BenchDisk::caches(), {MediaCategory::image}, 50'000);
    };
    const auto junk = [](const FileSystem &fileSystem) { JunkScanner(fileSystem).scanCachesAndLogs(1); };
    const auto size = [](const FileSystem &fileSystem) { allocatedSize(fileSystem, Url("/Applications")); };
    return {
        atMost("quitting in the middle of a media scan", longestEnd(disk.tree(), media), most, ms),
        atMost("quitting in the middle of a cache and log scan", longestEnd(disk.tree(), junk), most, ms),
        atMost("quitting in the middle of measuring 600,000 files", longestEnd(disk.bundles(), size), most, ms),
    };
}
