// What reading one bundle costs: ordinary ones with an icon, from the disk, and those that are made to cost much.

#include "BenchDisk.h"
#include "DiskBundleReader.h"
#include "DiskCodeSignature.h"
#include "Figure.h"
#include "FuzzedBundle.h"
#include "HostileInputs.h"
#include "LinuxFileSystem.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace {

using Clock = std::chrono::steady_clock;

/// Milliseconds that everything takes that is ever read of the bundle at `url`.
double reading(const FileSystem &fileSystem, const Url &url)
{
    const auto start = Clock::now();
    const DiskBundleReader reader(fileSystem, {QStringLiteral("pl"), QStringLiteral("en")});
    reader.open(url);
    reader.iconData(url);
    DiskCodeSignature(fileSystem).entitlements(url);
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double medianOfOrdinary(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.gallery(), BenchDisk::home(), {});
    std::vector<double> times;
    for (const auto &entry : fileSystem.contentsOfDirectory(Url("/Applications")))
        times.push_back(reading(fileSystem, entry.url()));
    if (times.size() != BenchDisk::galleryCount)
        qFatal("the disk lacks bundles");
    std::ranges::sort(times);
    return times[times.size() / 2];
}

} // namespace

std::vector<Figure> bundleReading(const BenchDisk &disk)
{
    const auto ms = QStringLiteral("ms");
    std::vector<Figure> figures{
        atMost("reading an ordinary bundle with its icon", medianOfOrdinary(disk), 2, ms, 2)};
    for (const auto &[reader, name, content] : hostileInputs()) {
        FuzzedBundle bundle;
        if (std::strcmp(reader, "bundle") == 0)
            bundle = FuzzedBundle(content);
        else if (std::strcmp(reader, "property_list") == 0)
            bundle.setContent(FuzzedBundle::information, content);
        else
            continue;
        const auto what =
            QStringLiteral("reading a hostile bundle, ") + QString(QLatin1String(name)).replace(u'_', u' ');
        figures.push_back(atMost(what, reading(bundle, FuzzedBundle::url()), 1000, ms));
    }
    return figures;
}
