// The leftover scan and the cache scan, which measure the whole tree, against the bare loop.

#include "BareLoop.h"
#include "BenchDisk.h"
#include "DiskBundleReader.h"
#include "JunkScanner.h"
#include "LeftoverScanner.h"
#include "LinuxApplicationRegistry.h"
#include "LinuxFileSystem.h"
#include "SideBySide.h"

std::vector<Figure> libraryScans(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const DiskBundleReader bundleReader(fileSystem, {});
    const LinuxApplicationRegistry registry(disk.tree(), fileSystem, bundleReader);
    const LeftoverScanner leftovers(fileSystem, registry);
    const JunkScanner junk(fileSystem);
    if (leftovers.scanLeftovers({}).size() != 50 || junk.scanCachesAndLogs(1).size() != 50)
        qFatal("the scans do not measure the tree");

    const auto path = disk.treePath();
    const auto bare = sideBySide(11, {[&] { BareLoop().measure(path); }, [&] { leftovers.scanLeftovers({}); },
                                      [&] { junk.scanCachesAndLogs(1); }});
    return {
        atMost("leftover scan of 150,000 files / bare loop", bare[1], 1.10),
        atMost("cache and log scan of 150,000 files / bare loop", bare[2], 1.10),
    };
}
