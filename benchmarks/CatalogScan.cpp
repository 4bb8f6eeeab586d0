// The catalog of large applications, against a bare loop that measures them one after another.

#include "ApplicationCatalogScanner.h"
#include "BareLoop.h"
#include "BenchDisk.h"
#include "DiskBundleReader.h"
#include "LinuxFileSystem.h"
#include "SideBySide.h"

std::vector<Figure> catalogScan(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.bundles(), BenchDisk::home(), {});
    const DiskBundleReader bundleReader(fileSystem, {});
    const ApplicationCatalogScanner catalog(fileSystem, bundleReader);
    if (catalog.scanApplications().size() != BenchDisk::itemCount)
        qFatal("the catalog does not list the applications");

    const auto path = disk.bundles().hostPath(Url("/Applications"));
    const auto scan = [&] { catalog.scanApplications(); };
    const auto bareLoop = [&] { BareLoop().measure(path); };
    const auto warm = sideBySide(7, {scan, bareLoop});
    const auto cold = coldSideBySide(5, {scan, bareLoop});
    return {
        fasterBy("catalog of 200 bundles of 600,000 files, than the bare loop", warm[1], 1.7),
        cold ? fasterBy("the same with cold caches", (*cold)[1], 2.5) : skipped("the same with cold caches"),
    };
}
