#include "AssociatedFileScanner.h"

#include "TestDisk.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>

using testing::ElementsAre;
using testing::IsEmpty;

struct AssociatedFileScannerTest : testing::Test
{
    TestDisk disk;

    QList<ScanItem> scan(const InstalledApplication &application) const
    {
        return AssociatedFileScanner(disk, disk.signatures).scanAssociatedFiles(application);
    }
};

// clang-format off
// Everything that belongs to the application "Notes.app" that calls itself "Shown", in the order of the rules.
const struct
{
    ScanItemKind kind;
    ScanConfidence confidence;
    QByteArrayList places;
} everyPlace[] = {
    {ScanItemKind::applicationSupport, ScanConfidence::exact, {"Application Support/org.notes"}},
    {ScanItemKind::applicationSupport, ScanConfidence::probable, {"Application Support/Shown", "Application Support/Notes"}},
    {ScanItemKind::cache, ScanConfidence::exact, {"Caches/org.notes"}},
    {ScanItemKind::cache, ScanConfidence::probable, {"Caches/Shown", "Caches/Notes"}},
    {ScanItemKind::container, ScanConfidence::exact, {"Containers/org.notes", "Application Scripts/org.notes"}},
    {ScanItemKind::log, ScanConfidence::exact, {"Logs/org.notes"}},
    {ScanItemKind::log, ScanConfidence::probable, {"Logs/Shown", "Logs/Notes"}},
    {ScanItemKind::savedState, ScanConfidence::exact, {"Saved Application State/org.notes.savedState"}},
    {ScanItemKind::webData, ScanConfidence::exact, {"WebKit/org.notes", "HTTPStorages/org.notes", "Cookies/org.notes.binarycookies"}},
    {ScanItemKind::preference, ScanConfidence::exact, {"Preferences/org.notes.plist"}},
    {ScanItemKind::container, ScanConfidence::exact, {"Group Containers/TEAM.notes"}},
    {ScanItemKind::applicationSupport, ScanConfidence::exact, {"LaunchAgents/org.notes.plist", "LaunchAgents/org.notes.savedState", "LaunchAgents/org.notes.binarycookies"}},
    {ScanItemKind::preference, ScanConfidence::exact, {"Preferences/ByHost/org.notes.plist", "Preferences/ByHost/org.notes.savedState", "Preferences/ByHost/org.notes.binarycookies"}},
};
// clang-format on

TEST_F(AssociatedFileScannerTest, everyPlaceGivesItsKindAndItsSelectionAndNoOtherPlaceAnything)
{
    for (const auto *folder :
         {"Application Support", "Caches", "Containers", "Application Scripts", "Logs", "Saved Application State",
          "WebKit", "HTTPStorages", "Cookies", "Preferences", "Group Containers", "LaunchAgents",
          "Preferences/ByHost", "Services", "Caches/Deeper"}) {
        for (const auto *name : {"org.notes", "Shown", "Notes", "TEAM.notes"}) {
            for (const auto *suffix : {"", ".plist", ".savedState", ".binarycookies"})
                disk.file(QByteArray("~/Library/") + folder + '/' + name + suffix, 10);
        }
    }
    const ApplicationTraits traits{
        .identifier = "org.notes", .name = "Shown", .size = 10, .groups = {"TEAM.notes"}};
    const auto application = disk.application("/Applications/Notes.app", traits);
    QList<ScanItem> expected{{application.url, ScanItemKind::application, ScanConfidence::exact, 10, true}};
    QList<ScanItem> ofSystem;
    for (const auto &[kind, confidence, places] : everyPlace) {
        for (const auto &place : places) {
            const auto url = disk.url("~/Library/" + place);
            expected.append({url, kind, confidence, 10, confidence == ScanConfidence::exact});
            ofSystem.append({url, kind, confidence, 10, false});
        }
    }

    // Equal sizes keep the order of the rules.
    EXPECT_THAT(scan(application), testing::ElementsAreArray(expected));
    EXPECT_THAT(scan(disk.application("/System/Applications/Notes.app", traits)),
                testing::ElementsAreArray(ofSystem));
}

TEST_F(AssociatedFileScannerTest, largestComesFirstAndWhatTwoProbesFindComesOnceAndExactly)
{
    const auto application =
        disk.application("/Applications/org.notes.app", {.identifier = "org.notes", .size = 5});
    disk.file("~/Library/Application Support/org.notes", 4);
    disk.file("~/Library/Caches/org.notes/file", 6);
    disk.file("~/Library/Logs/org.notes", 7);

    const auto items = scan(application);
    EXPECT_THAT(pathsOf(items),
                ElementsAre("~/Library/Logs/org.notes", "~/Library/Caches/org.notes",
                            "/Applications/org.notes.app", "~/Library/Application Support/org.notes"));
    EXPECT_THAT(items, testing::Each(testing::Field(&ScanItem::confidence, ScanConfidence::exact)));
}

TEST_F(AssociatedFileScannerTest, longerIdentifierWithTheSamePrefixIsNotOffered)
{
    const auto application = disk.application("/Applications/Notes.app", {.identifier = "org.notes"});
    const auto tool = disk.application("/System/Applications/Tool.app", {.identifier = "tool"});
    for (const auto *name : {"org.notes.plist", "org.notes.agent.plist", "org.noteser.plist", "ORG.notes.plist",
                             "org.notes", "org.notes-x.plist", ".org.notes.plist", "tool", "tool.plist"}) {
        disk.file(QByteArray("~/Library/LaunchAgents/") + name);
        disk.file(QByteArray("~/Library/Preferences/ByHost/") + name);
    }

    EXPECT_THAT(pathsOf(scan(application)),
                ElementsAre("/Applications/Notes.app", "~/Library/LaunchAgents/org.notes.plist",
                            "~/Library/LaunchAgents/org.notes.agent.plist",
                            "~/Library/Preferences/ByHost/org.notes.plist",
                            "~/Library/Preferences/ByHost/org.notes.agent.plist"));
    EXPECT_THAT(pathsOf(scan(tool)),
                ElementsAre("~/Library/LaunchAgents/tool", "~/Library/LaunchAgents/tool.plist",
                            "~/Library/Preferences/ByHost/tool.plist"));
}

TEST_F(AssociatedFileScannerTest, hostileBundleCannotHaveAWholeAreaOffered)
{
    disk.file("~/Library/Caches/org.victim/file");
    disk.file("~/Library/Group Containers/TEAM.victim/file");
    disk.file("~/Library/LaunchAgents/..plist");
    disk.file("~/Library/Preferences/ByHost/...plist");
    for (const auto &text : {QString("."), QString(".."), QString("../Caches"), QString("org.victim/."),
                             QString("org.victim") + QChar(0)}) {
        const auto application = disk.application(
            "/System/Applications/Hostile.app",
            {.identifier = text, .name = text, .groups = {"..", "../Group Containers", "TEAM.victim/.", "", "."}});
        EXPECT_THAT(scan(application), IsEmpty()) << text.toStdString();
    }
}

TEST_F(AssociatedFileScannerTest, groupsCountOnceAndOnlyAsAListOfTexts)
{
    disk.folder("~/Library/Group Containers/TEAM.a");
    disk.folder("~/Library/Group Containers/TEAM.b");
    const auto application = disk.application(
        "/System/Applications/Notes.app", {.identifier = "org.notes", .groups = {"TEAM.b", "TEAM.a", "TEAM.b"}});
    EXPECT_THAT(pathsOf(scan(application)),
                ElementsAre("~/Library/Group Containers/TEAM.b", "~/Library/Group Containers/TEAM.a"));

    for (const QVariant &value : {QVariant("TEAM.a"), QVariant(QVariantList{"TEAM.a", 7}), QVariant()}) {
        disk.signatures.add(application.url, {{"com.apple.security.application-groups", value}});
        EXPECT_THAT(scan(application), IsEmpty());
    }
}

TEST_F(AssociatedFileScannerTest, linksCountAsThemselvesAndNamesAsTheirBytes)
{
    const auto application = disk.application("/System/Applications/\xff.app", {.identifier = "org.notes"});
    disk.file("/elsewhere/file", 1'000'000);
    disk.link("~/Library/Caches/org.notes", "/elsewhere");
    disk.link("~/Library/Logs/org.notes", "/nowhere");
    disk.folder("~/Library/Logs/\xff");
    disk.folder("~/Library/Logs/\xfe");

    const auto items = scan(application);
    ASSERT_THAT(pathsOf(items), ElementsAre("~/Library/Caches/org.notes", "~/Library/Logs/\xff"));
    EXPECT_EQ(items.first().sizeBytes, 1);
}

TEST_F(AssociatedFileScannerTest, namesAreFoundInEveryCanonicalSpelling)
{
    // Composed, as programs spell; the files came from a Mac, or half of the way.
    const auto application =
        disk.application("/System/Applications/\u017b\u00f3\u0142w.app",
                         {.identifier = "org.\u017c\u00f3\u0142w", .groups = {"\u017c\u00f3\u0142w"}});
    const QByteArrayList expected{"~/Library/Caches/Z\u0307o\u0301\u0142w",
                                  "~/Library/Logs/\u017b\u00f3\u0142w",
                                  "~/Library/Logs/\u017bo\u0301\u0142w",
                                  "~/Library/Cookies/org.z\u0307o\u0301\u0142w.binarycookies",
                                  "~/Library/Group Containers/z\u0307o\u0301\u0142w",
                                  "~/Library/LaunchAgents/org.z\u0307o\u0301\u0142w.plist",
                                  "~/Library/LaunchAgents/org.z\u0307o\u0301\u0142w.agent.plist",
                                  "~/Library/Preferences/ByHost/org.z\u0307o\u0301\u0142w.1F2E.plist"};
    // What is spelled as it is asked for comes first, wherever it lies.
    for (const auto &path : expected.mid(2) + expected
                                + QByteArrayList{"~/Library/Caches/Zo\u0301\u0142w",
                                                 "~/Library/LaunchAgents/org.z\u0307o\u0301\u0142wie.plist"})
        disk.file(path);
    EXPECT_THAT(pathsOf(scan(application)), testing::ElementsAreArray(expected));
}

/// A disk that counts how often its folders are listed.
class CountingDisk : public TestDisk
{
public:
    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override
    {
        mostListings = std::max(mostListings, ++m_listings[folder.path()]);
        return TestDisk::contentsOfDirectory(folder);
    }
    mutable int mostListings = 0;

private:
    mutable std::map<QByteArray, int> m_listings;
};

TEST(NamesOfAMacTest, aProbeFindsWhatAMacWouldHaveFoundAtOneListingAFolder)
{
    CountingDisk disk;
    for (const auto *path :
         {"Caches/COM.Acme.\u0141o\u0301dz\u0301", // decomposed, and in another case
          "Caches/notes", "Logs/Notes", "Logs/NOTES", // the very name comes before one that is like it
          "Application Support/NOTES", "Application Support/notes", // told apart there
          "Containers/com.acme.\u0142\u00f3d\u017a2", "WebKit/.com.acme.\u0142\u00f3d\u017a"})
        disk.file("~/Library/" + QByteArray(path));
    const auto application = disk.application("/System/Applications/Notes.app",
                                              {.identifier = "com.acme.\u0142\u00f3d\u017a", .name = "Notes"});
    const AssociatedFileScanner scanner(disk, disk.signatures, AssociatedFileScanner::NamesOnDisk::asOnMac);

    EXPECT_THAT(pathsOf(scanner.scanAssociatedFiles(application)),
                ElementsAre("~/Library/Caches/COM.Acme.\u0141o\u0301dz\u0301", "~/Library/Caches/notes",
                            "~/Library/Logs/Notes"));
    EXPECT_EQ(disk.mostListings, 1);
}
