#include "JunkScanner.h"

#include "TestDisk.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(JunkScannerTest, everythingButTheSystemsOwnIsOfferedWholeAndUnselected)
{
    TestDisk disk;
    const auto log = disk.file("~/Library/Logs/tool.log", 10);
    const auto larger = disk.file("~/Library/Logs/larger.log", 20);
    disk.file("~/Library/Caches/tool/a", 4);
    disk.file("~/Library/Caches/tool/deeper/b", 6);
    disk.file("~/Library/Caches/mostly hidden/file", 3);
    disk.file("~/Library/Caches/mostly hidden/.file", 5'000'000);
    disk.file("~/Library/Caches/com.applesoft.tool", 5);
    for (const auto *name : {"com.apple.Safari", "COM.Apple.Something", ".hidden"})
        disk.file(QByteArray("~/Library/Caches/") + name, 100);

    EXPECT_THAT(JunkScanner(disk).scanCachesAndLogs(4),
                ElementsAre(ScanItem{larger, ScanItemKind::log, ScanConfidence::exact, 20, false},
                            ScanItem{disk.url("~/Library/Caches/tool"), ScanItemKind::cache, ScanConfidence::exact,
                                     10, false},
                            ScanItem{log, ScanItemKind::log, ScanConfidence::exact, 10, false},
                            ScanItem{disk.url("~/Library/Caches/com.applesoft.tool"), ScanItemKind::cache,
                                     ScanConfidence::exact, 5, false}));
}

TEST(JunkScannerTest, equalSizesKeepTheOrderOfTheDisk)
{
    TestDisk disk;
    QByteArrayList expected;
    for (const auto *folder : {"Caches", "Logs"}) {
        for (int i = 40; i > 20; --i)
            expected.append(QByteArray("~/Library/") + folder + "/entry " + QByteArray::number(i));
    }
    for (const auto &path : expected)
        disk.file(path);
    EXPECT_THAT(pathsOf(JunkScanner(disk).scanCachesAndLogs(1)), ElementsAreArray(expected));
}
