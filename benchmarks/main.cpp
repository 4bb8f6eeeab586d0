// Prints the budget table: what was measured in this run, what is allowed, and whether it is met.
//   benchmarks FOLDER            makes its disks in FOLDER, or uses those that it made there, and measures everything
//   benchmarks FOLDER NAME...    measures what has these names only

#include "BenchDisk.h"
#include "Figure.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

namespace {

constexpr struct
{
    const char *name;
    std::vector<Figure> (*measure)(const BenchDisk &);
} measurements[] = {
    {"size", sizeWalk},
    {"media", mediaScan},
    {"name", nameSearch},
    {"library", libraryScans},
    {"memory", resultMemory},
    {"memory", walkMemory},
    {"tick", rowToggle},
    {"bundles", bundlesAndRemoval},
    {"window", windowFigures},
    {"catalog", catalogScan},
    {"quit", quitInTheMiddle},
    {"snapshot", snapshot},
    {"crowd", crowdedFolder},
    {"bus", silentBus},
    {"bundles", bundleReading},
};

void print(const Figure &figure)
{
    const auto *mark = figure.budget.isEmpty() ? " " : figure.isMet ? "✓" : "✗";
    std::printf("%-66s %15s   %-18s %s\n", qPrintable(figure.what), qPrintable(figure.measured),
                qPrintable(figure.budget), mark);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER [NAME...]\nNames are", argv[0]);
        for (const auto &measurement : measurements)
            std::fprintf(stderr, " %s", measurement.name);
        std::fprintf(stderr, "\n");
        return 2;
    }
    const BenchDisk disk(QFile::encodeName(QDir(argv[1]).absolutePath()));
    // The Trash is the one on the second disk.
    const auto home = disk.applications().hostPath(BenchDisk::home());
    qputenv("HOME", home);
    qputenv("XDG_DATA_HOME", home + "/.local/share");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    disk.make();

    const auto names = QCoreApplication::arguments().mid(2);
    bool isAllMet = true;
    for (const auto &[name, measure] : measurements) {
        if (!names.isEmpty() && !names.contains(QLatin1String(name)))
            continue;
        for (const auto &figure : measure(disk)) {
            print(figure);
            isAllMet = isAllMet && figure.isMet;
        }
    }
    return isAllMet ? 0 : 1;
}
