// The leftover scan and the cache scan, which measure the whole tree, against the bare loop; and what the leftover scan
// costs before that, the index of all bundles, against the bare loop over these.

#include "BareLoop.h"
#include "BenchDisk.h"
#include "JunkScanner.h"
#include "LeftoverScanner.h"
#include "LinuxApplicationRegistry.h"
#include "LinuxFileSystem.h"
#include "SideBySide.h"

std::vector<Figure> libraryScans(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const LinuxApplicationRegistry registry(disk.tree(), fileSystem);
    const LeftoverScanner leftovers(fileSystem, registry);
    const JunkScanner junk(fileSystem);
    if (leftovers.scanLeftovers({}).size() != 50 || junk.scanCachesAndLogs(1).size() != 50)
        qFatal("the scans do not measure the tree");

    const auto path = disk.treePath();
    const auto bare = sideBySide(11, {[&] { BareLoop().measure(path); }, [&] { leftovers.scanLeftovers({}); },
                                      [&] { junk.scanCachesAndLogs(1); }});
    const LinuxFileSystem applicationDisk(disk.applications(), BenchDisk::home(), {});
    const LinuxApplicationRegistry applicationRegistry(disk.applications(), applicationDisk);
    if (!applicationRegistry.index()->urlForApplication(QStringLiteral("com.example.tool199")))
        qFatal("the index lacks applications");
    const auto applications = disk.applications().hostPath(Url("/Applications"));
    const auto bareApplications =
        sideBySide(31, {[&] { BareLoop().measure(applications); }, [&] { applicationRegistry.index(); }});
    const LinuxFileSystem bundleDisk(disk.bundles(), BenchDisk::home(), {});
    const LinuxApplicationRegistry bundleRegistry(disk.bundles(), bundleDisk);
    const auto bundles = disk.bundles().hostPath(Url("/Applications"));
    // It reads names alone.
    const auto bareListing = [&] { BareLoop([](QByteArrayView) { return false; }).measure(bundles); };
    const auto index = [&] { bundleRegistry.index(); };
    const auto warm = sideBySide(7, {index, bareListing});
    const auto cold = coldSideBySide(3, {index, bareListing});
    return {
        fasterBy("index of bundles of 600,000 files, than a bare listing", warm[1], 1.0),
        cold ? fasterBy("the same with cold caches", (*cold)[1], 2.0) : skipped("the same with cold caches"),
        atMost("index of the bundles of 200 applications / bare loop", bareApplications[1], 2.5),
        atMost("leftover scan of 150,000 files / bare loop", bare[1], 1.10),
        atMost("cache and log scan of 150,000 files / bare loop", bare[2], 1.10),
    };
}
