// Prints the budget table: what was measured in this run, what is allowed, and whether it is met.

#include "BenchDisk.h"
#include "Figure.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

namespace {

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
        std::fprintf(stderr, "usage: %s FOLDER\nMakes its disks in FOLDER, or uses those that it made there.\n",
                     argv[0]);
        return 2;
    }
    const BenchDisk disk(QFile::encodeName(QDir(argv[1]).absolutePath()));
    // The Trash is the one on the second disk.
    const auto home = disk.applications().hostPath(BenchDisk::home());
    qputenv("HOME", home);
    qputenv("XDG_DATA_HOME", home + "/.local/share");
    QCoreApplication application(argc, argv);

    bool isAllMet = true;
    for (const auto measure : {sizeWalk, mediaScan, nameSearch, libraryScans, resultMemory, bundlesAndRemoval,
                               windowFigures, snapshot, crowdedFolder}) {
        for (const auto &figure : measure(disk)) {
            print(figure);
            isAllMet = isAllMet && figure.isMet;
        }
    }
    return isAllMet ? 0 : 1;
}
