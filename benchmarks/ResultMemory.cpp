// The memory that 50,000 results hold.

#include "BenchDisk.h"
#include "Figure.h"
#include "LinuxFileSystem.h"
#include "TextFileScanner.h"

#include <malloc.h>

namespace {

double allocatedMebibytes()
{
    const auto memory = mallinfo2();
    return static_cast<double>(memory.uordblks + memory.hblkhd) / (1024 * 1024);
}

} // namespace

std::vector<Figure> resultMemory(const BenchDisk &disk)
{
    constexpr double most = 25;
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const QSet categories{TextFileCategory::plainText, TextFileCategory::richText,
                          TextFileCategory::microsoftOffice, TextFileCategory::libreOffice, TextFileCategory::pdf};
    const auto before = allocatedMebibytes();
    const auto files = TextFileScanner(fileSystem).scanTextFiles(BenchDisk::caches(), categories, 50'000);
    if (files.size() != 50'000)
        qFatal("the tree has too few documents");
    const auto held = allocatedMebibytes() - before;
    return {atMost("memory for 50,000 results", held, most, QStringLiteral("MiB"))};
}
