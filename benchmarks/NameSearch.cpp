// The exact-name search in the Library, against `find -maxdepth 6 -iname`.

#include "BenchDisk.h"
#include "LeftoverScanner.h"
#include "LinuxApplicationRegistry.h"
#include "LinuxFileSystem.h"
#include "SideBySide.h"

std::vector<Figure> nameSearch(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const LinuxApplicationRegistry registry(disk.tree(), fileSystem);
    const LeftoverScanner scanner(fileSystem, registry);
    const auto search = [&] { scanner.searchItems("com.example.tool999"); };
    const auto find =
        program("find", {QString::fromUtf8(disk.treePath()), "-maxdepth", "6", "-iname", "com.example.tool999"});
    const auto warm = sideBySide(11, {search, find});
    const auto cold = coldSideBySide(5, {search, find});
    return {
        fasterBy("exact name among 150,000 files, than find -maxdepth 6 -iname", warm[1], 1.0),
        cold ? fasterBy("the same with cold caches", (*cold)[1], 3.0) : skipped("the same with cold caches"),
    };
}
