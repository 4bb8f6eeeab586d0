#include "JunkScanner.h"

#include "TestDisk.h"

#include <gmock/gmock.h>

TEST(JunkScannerTest, everythingButTheSystemsOwnIsOfferedWholeAndUnselectedTheLargestFirst)
{
    TestDisk disk;
    QList<ScanItem> expected;
    const auto expect = [&expected](const Url &url, ScanItemKind kind, qint64 size) {
        expected.append({url, kind, ScanConfidence::exact, size, false});
    };
    expect(disk.file("~/Library/Logs/larger.log", 20), ScanItemKind::log, 20);
    disk.file("~/Library/Caches/tool/a", 4);
    disk.file("~/Library/Caches/tool/deeper/b", 7);
    expect(disk.url("~/Library/Caches/tool"), ScanItemKind::cache, 11);
    // Equal sizes keep the order of the disk.
    for (const auto kind : {ScanItemKind::cache, ScanItemKind::log}) {
        for (int i = 40; i > 20; --i)
            expect(disk.file((kind == ScanItemKind::log ? "~/Library/Logs/" : "~/Library/Caches/")
                                 + QByteArray::number(i),
                             10),
                   kind, 10);
    }
    expect(disk.file("~/Library/Caches/com.applesoft.tool", 4), ScanItemKind::cache, 4);
    disk.file("~/Library/Logs/small.log", 3);
    disk.file("~/Library/Caches/mostly hidden/file", 3);
    disk.file("~/Library/Caches/mostly hidden/.file", 5'000'000);
    for (const auto *name : {"com.apple.Safari", "COM.Apple.Something", ".hidden", "__MACOSX"})
        disk.file(QByteArray("~/Library/Caches/") + name, 100);

    EXPECT_EQ(JunkScanner(disk).scanCachesAndLogs(4), expected);
}
