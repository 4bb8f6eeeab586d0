#include "LeftoverScanner.h"

#include "FakeApplicationRegistry.h"
#include "TestDisk.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

struct LeftoverScannerTest : testing::Test
{
    TestDisk disk;
    FakeApplicationRegistry registry;
    LeftoverScanner scanner{disk, registry};

    static QString validated(const QString &text)
    {
        return LeftoverScanner::validatedSearchName(text).value_or("refused");
    }
};

TEST_F(LeftoverScannerTest, onlyWhatIsNamedLikeAnIdentifierIsOffered)
{
    for (const auto *name :
         {"vendor.tool", "com..tool", ".com.vendor.tool", "com.vendor.tool.", "com.vendor.tool 2",
          "com.vendor.tool~", "com.vendor.to+ol", "com.vendor.😀", "com.vendor.tool\xff", "com.vendor.\xff",
          "\ufeffcom.vendor.tool", "com.vendor.\u0301x", "com.vendor.x.\u0301", "com.apple.tool", "Tool"})
        disk.folder(QByteArray("~/Library/Caches/") + name);
    QByteArrayList expected;
    for (const auto *name :
         {"com.vendor.tool", "com.vendor.tool.1.backup", "a-b.c_d.3", "com.za\u017c\u00f3\u0142\u0107.x",
          "com.z\u0307ołw\u0301.x", "рф.компания.программа", "中.文.名", "com.vendor.\u0663",
          "com.vendor.\U00010400", "Com.Apple.tool", "com.applesoft.tool"}) {
        expected.append(QByteArray("~/Library/Caches/") + name);
        disk.folder(expected.last());
    }
    EXPECT_THAT(pathsOf(scanner.scanLeftovers({})), testing::ElementsAreArray(expected));
}

TEST_F(LeftoverScannerTest, fiveFoldersAreSearchedOneLevelDeepAndTheLargestComesFirst)
{
    QByteArrayList expected;
    for (const auto *folder : {"Caches", "Containers", "Saved Application State", "HTTPStorages", "WebKit"}) {
        for (int i = 9; i > 0; --i)
            expected.append(QByteArray("~/Library/") + folder + "/com.vendor.tool" + QByteArray::number(i));
    }
    for (const auto &path : expected)
        disk.file(path, 5);
    expected.prepend("~/Library/Saved Application State/com.vendor.tool.savedState");
    disk.file(expected.first() + "/data", 6);
    disk.file("~/Library/Saved Application State/vendor.tool.savedState/data", 6);
    for (const auto *folder : {"Application Support", "Preferences", "Logs", "Group Containers", "Caches/Vendor"})
        disk.file(QByteArray("~/Library/") + folder + "/com.vendor.tool", 7);

    // Equal sizes keep the order of the disk.
    const auto items = scanner.scanLeftovers({});
    EXPECT_THAT(pathsOf(items), testing::ElementsAreArray(expected));
    EXPECT_EQ(items.first(),
              (ScanItem{items.first().url, ScanItemKind::leftover, ScanConfidence::probable, 6, false}));
}

TEST_F(LeftoverScannerTest, knownApplicationsAreLeftAloneAndTheSystemIsAskedOnce)
{
    for (const auto *name : {"com.vendor.listed", "com.Vendor.Listed", "com.vendor.z\u0307\u00f3\u0142w",
                             "com.apple.Safari", "Not an identifier"})
        disk.folder(QByteArray("~/Library/Caches/") + name);
    EXPECT_THAT(scanner.scanLeftovers({"com.vendor.listed", "com.vendor.\u017b\u00f3\u0142W"}), IsEmpty());
    EXPECT_EQ(registry.timesRead(), 0);

    registry.add("com.vendor.known");
    disk.folder("~/Library/Caches/com.vendor.known");
    disk.folder("~/Library/Caches/com.vendor.known.savedState");
    disk.folder("~/Library/Caches/com.vendor.KNOWN");
    disk.folder("~/Library/Saved Application State/com.vendor.known.savedState");
    disk.remove("~/Library/Caches/com.vendor.z\u0307\u00f3\u0142w");
    EXPECT_THAT(pathsOf(scanner.scanLeftovers({"COM.vendor.LISTED"})),
                ElementsAre("~/Library/Caches/com.vendor.known.savedState"));
    EXPECT_EQ(registry.timesRead(), 1);
}

TEST_F(LeftoverScannerTest, searchNamesAreTrimmedAndBoundedByCharacters)
{
    EXPECT_EQ(validated("  com.vendor.tool \n"), "com.vendor.tool");
    EXPECT_EQ(validated("\u2028\u00a0a b\u3000\u0085"), "a b");
    const QString flags = QString("🇵🇱").repeated(255);
    EXPECT_EQ(validated(flags), flags);
    EXPECT_EQ(validated("e\u0301e\u0301e\u0301"), "e\u0301e\u0301e\u0301");
    for (const auto &text :
         {QString("ab"), QString("e\u0301e\u0301"), QString(".."), QString("a/b"), QString("abc/"),
          QString("a\\bc"), QString("ab/\u0301"), QString("ab\\\u0301"), QString(256, u'a'), flags + "a",
          QString(), QString("  ab  "), QString("ab") + QChar(0), QString("ab") + QChar(0xd800)})
        EXPECT_EQ(validated(text), "refused") << text.toStdString();
}

TEST_F(LeftoverScannerTest, searchComparesWholeNamesWithoutCaseAndInBothSpellings)
{
    for (const auto *place :
         {"Containers/com.vendor.tool", "Caches/deep/COM.VENDOR.TOOL", "WebKit/.com.vendor.tool",
          "Preferences/com.vendor.tool.plist", "Elsewhere/com.vendor.tool", "Logs/com.vendor.too\xff"})
        disk.folder(QByteArray("~/Library/") + place);
    EXPECT_THAT(pathsOf(scanner.searchItems(" com.vendor.tool ")),
                ElementsAre("~/Library/Caches/deep/COM.VENDOR.TOOL", "~/Library/Containers/com.vendor.tool"));
    EXPECT_THAT(scanner.searchItems("com.vendor.too\ufffd"), IsEmpty());
    // A mark at the beginning belongs to the name.
    disk.folder("~/Library/Logs/\ufeffmarked");
    EXPECT_THAT(scanner.searchItems("marked"), IsEmpty());
    EXPECT_EQ(scanner.searchItems(QChar(0xfeff) + QString("marked")).size(), 1);
    EXPECT_THAT(scanner.searchItems("no"), IsEmpty());

    disk.folder("~/Library/Logs/Z\u0307o\u0301łw");
    disk.folder("~/Library/Logs/żó\u0141W");
    EXPECT_EQ(scanner.searchItems("\u017b\u00f3\u0142w").size(), 2);
}

TEST_F(LeftoverScannerTest, searchLooksSixLevelsDownInTwelveFoldersAndNotIntoWhatItFinds)
{
    QByteArrayList expected;
    for (const auto *folder : {"Application Scripts", "Application Support", "Caches", "Containers",
                               "Cookies/folder", "Cookies", "Group Containers", "HTTPStorages", "LaunchAgents",
                               "Logs/1/2/3/4/5", "Logs", "Preferences", "Saved Application State", "WebKit"})
        expected.append(QByteArray("~/Library/") + folder + "/tool");
    for (const auto &path : expected)
        disk.file(path);
    disk.remove("~/Library/Caches/tool");
    for (const auto *folder : {"Mail", "Documents", "Keychains", "Internet Plug-Ins", "Caches/Some.app",
                               "Caches/.hidden", "Caches/tool", "Logs/1/2/3/4/5/6"})
        disk.file(QByteArray("~/Library/") + folder + "/tool");

    const auto items = scanner.searchItems("tool");
    EXPECT_THAT(pathsOf(items), testing::ElementsAreArray(expected));
    EXPECT_EQ(items.first(),
              (ScanItem{items.first().url, ScanItemKind::leftover, ScanConfidence::probable, 4096, false}));
}
