// The size of a tree, against the bare loop that does the same and against `du -s`.

#include "AllocatedSize.h"
#include "BareLoop.h"
#include "BenchDisk.h"
#include "LinuxFileSystem.h"
#include "SideBySide.h"

std::vector<Figure> sizeWalk(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const auto path = disk.treePath();
    if (allocatedSize(fileSystem, BenchDisk::caches()) != BareLoop().measure(path))
        qFatal("the walk and the bare loop disagree");

    const auto walk = [&] { allocatedSize(fileSystem, BenchDisk::caches()); };
    const auto bare = sideBySide(21, {[&] { BareLoop().measure(path); }, walk});
    const auto du = sideBySide(11, {walk, program("du", {"-s", QString::fromUtf8(path)})});
    return {
        {"size of 150,000 files: the bare loop itself",
         QStringLiteral("%1 ms").arg(bare[0] * 1000, 0, 'f', 0),
         {}},
        atMost("size of 150,000 files / bare loop", bare[1], 1.05),
        fasterBy("size of 150,000 files, than du -s", du[1], 1.25),
    };
}
