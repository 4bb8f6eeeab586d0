// The size of a tree, against the bare loop that does the same on one thread, `du -s` and gdu.

#include "AllocatedSize.h"
#include "BareLoop.h"
#include "BenchDisk.h"
#include "LinuxFileSystem.h"
#include "SideBySide.h"

#include <sched.h>

namespace {

/// As `taskset` has it.
void onOneCore(const std::function<void()> &work)
{
    cpu_set_t before, one;
    sched_getaffinity(0, sizeof before, &before);
    CPU_ZERO(&one);
    CPU_SET(sched_getcpu(), &one);
    sched_setaffinity(0, sizeof one, &one);
    work();
    sched_setaffinity(0, sizeof before, &before);
}

} // namespace

std::vector<Figure> sizeWalk(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const auto path = disk.treePath();
    if (allocatedSize(fileSystem, BenchDisk::caches()) != BareLoop().measure(path))
        qFatal("the walk and the bare loop disagree");

    const auto walk = [&] { allocatedSize(fileSystem, BenchDisk::caches()); };
    const auto bareLoop = [&] { BareLoop().measure(path); };
    const auto du = program("du", {"-s", QString::fromUtf8(path)});
    const auto gdu = program("gdu", {"-n", "-s", "-p", QString::fromUtf8(path)});
    const auto bare = sideBySide(21, {bareLoop, walk, [&] { onOneCore(walk); }});
    const auto others = sideBySide(11, {walk, du, gdu});
    std::vector<Figure> figures{
        {"size of 150,000 files: the bare loop itself",
         QStringLiteral("%1 ms").arg(bare[0] * 1000, 0, 'f', 0),
         {}},
        fasterBy("size of 150,000 files, than the bare loop", 1 / bare[1], 1.8),
        atMost("the same on one core / bare loop", bare[2], 1.10),
        fasterBy("size of 150,000 files, than du -s", others[1], 2.0),
        fasterBy("size of 150,000 files, than gdu -n -s -p", others[2], 2.5),
    };
    const auto cold = coldSideBySide(5, {walk, du, gdu});
    figures.push_back(cold ? fasterBy("the same with cold caches, than du -s", (*cold)[1], 2.5)
                           : skipped("the same with cold caches, than du -s"));
    figures.push_back(cold ? fasterBy("the same with cold caches, than gdu -n -s -p", (*cold)[2], 1.7)
                           : skipped("the same with cold caches, than gdu -n -s -p"));
    return figures;
}
