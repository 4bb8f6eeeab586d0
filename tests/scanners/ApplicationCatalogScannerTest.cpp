#include "ApplicationCatalogScanner.h"

#include "TestDisk.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

struct ApplicationCatalogScannerTest : testing::Test
{
    TestDisk disk;

    QList<InstalledApplication> scan() const
    {
        return ApplicationCatalogScanner(disk, disk.bundles).scanApplications();
    }
    void bundle(const QByteArray &path, QVariantMap information)
    {
        information.insert("CFBundleIdentifier", "org.any");
        disk.bundles.add(disk.folder(path), information);
    }
};

TEST_F(ApplicationCatalogScannerTest, applicationsOfTheThreeFoldersAreListedAsTheyAre)
{
    const auto system =
        disk.application("/System/Applications/Notes.app", {.identifier = "com.apple.notes", .size = 3});
    const auto own = disk.application("~/Applications/Notes.APP", {.identifier = "org.notes", .size = 2});
    const auto shared = disk.application("/Applications/Notes.app", {.identifier = "org.notes", .size = 1});
    disk.application("/Applications/Utilities/Console.app", {.identifier = "org.console"});
    disk.application("/Applications/.Hidden.app", {.identifier = "org.hidden"});
    disk.application("/Applications/Nameless.app", {.identifier = ""});
    disk.application("/Applications/Notes.application", {.identifier = "org.other"});
    disk.application("/Applications/Endless.app", {.identifier = "org." + QString(252, u'e')});
    disk.folder("/Applications/Folder.app");
    disk.bundles.add(disk.folder("/Applications/Broken.app"), {{"CFBundleIdentifier", 7}});

    EXPECT_EQ(scan(), (QList<InstalledApplication>{shared, own, system}));
}

TEST_F(ApplicationCatalogScannerTest, namesFollowTheirPrecedence)
{
    bundle("/Applications/A.app", {{"CFBundleDisplayName", "Shown"}, {"CFBundleName", "Short"}});
    bundle("/Applications/B.app", {{"CFBundleDisplayName", 7}, {"CFBundleName", "Short"}});
    bundle("/Applications/Last Resort.app", {{"CFBundleName", QStringList{"list"}}});
    const QString longest(255, u'n');
    bundle("/Applications/E.app", {{"CFBundleDisplayName", longest + 'n'}, {"CFBundleName", longest}});
    bundle("/Applications/D.app", {{"CFBundleDisplayName", ""}, {"CFBundleName", "Short of D"}});

    QStringList names;
    for (const auto &application : scan())
        names.append(application.name);
    EXPECT_THAT(names, ElementsAre("", "Last Resort", longest, "Short", "Shown"));
}

TEST_F(ApplicationCatalogScannerTest, orderIsTheReadersAndKeepsEqualNamesAsFound)
{
    QByteArrayList expected{"Alpha", "alpha", "azzz",  "ąlfa",   "beta", "lama",
                            "Łoś",   "mama",  "zebra", "Źrebak", "Żaba"};
    for (const auto i : {9, 4, 8, 6, 3, 0, 5, 1, 10, 2, 7})
        bundle("/Applications/" + expected.at(i) + ".app", {});
    for (auto &name : expected)
        name = "/Applications/" + name + ".app";
    for (const auto *folder : {"/Applications", "~/Applications", "/System/Applications"}) {
        for (int i = 9; i > 0; --i) {
            expected.append(folder + QByteArray("/") + QByteArray::number(i) + ".app");
            bundle(expected.last(), {{"CFBundleName", i % 2 ? "żzzz" : "ŻZZZ"}});
        }
    }
    EXPECT_THAT(pathsOf(scan()), testing::ElementsAreArray(expected));
}

TEST_F(ApplicationCatalogScannerTest, findingTakesAFullNameInAnySpelling)
{
    const QList<InstalledApplication> applications{
        {"Safari", "com.vendor.app", Url("/Applications/Safari.app"), 0, false},
        {"FooBar", "org.foo", Url("/Applications/Foo Bar.app"), 0, false},
        {"Żółw", "org.turtle", Url("/Applications/Straße.app"), 0, false},
        {"Odd", "org.odd", Url("/Applications/\xff.app"), 0, false},
        {"Dotted", "org.dotted", Url("/Applications/.app.app"), 0, false},
        {"safari", "org.second", Url("/Applications/Second.app"), 0, false},
    };
    const auto find = [&applications](const QString &query) {
        const auto found = ApplicationCatalogScanner::findApplication(query, applications);
        return found ? found->bundleIdentifier : QString("none");
    };
    EXPECT_EQ(find("  safari.app\n"), "com.vendor.app");
    EXPECT_EQ(find("\u3000SAFARI.APP\u2028"), "com.vendor.app");
    EXPECT_EQ(find("com.Vendor.app"), "com.vendor.app");
    EXPECT_EQ(find("foo bar"), "org.foo");
    EXPECT_EQ(find("z\u0307o\u0301\u0142w.app"), "org.turtle");
    EXPECT_EQ(find("STRAẞE"), "org.turtle");
    EXPECT_EQ(find(".app"), "org.dotted");
    for (const auto *query : {"", "   ", "Safar", "Safari.app.app", "STRASSE", "\ufffd", "foo"})
        EXPECT_EQ(find(query), "none") << query;
}
