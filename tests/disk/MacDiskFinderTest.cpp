#include "MacDiskFinder.h"

#include "LinuxFileSystem.h"
#include "OrdinaryUser.h"
#include "TemporaryDisk.h"

#include <gmock/gmock.h>

struct MacDiskFinderTest : testing::Test
{
    /// Where disks lie.
    TemporaryDisk computer;

    void makeMac(const QByteArray &folder, const QByteArrayList &homes) const
    {
        for (const auto *name : {"/Applications", "/System", "/Users/Shared/Library", "/Users/Guest/Library"})
            computer.folder(folder + name);
        for (const auto &home : homes)
            computer.folder(folder + "/Users/" + home + "/Library/Preferences");
    }

    /// The paths of the homes, after "alone" for one without its disk; else the refusal in words.
    std::string find(const QByteArray &folder, const std::optional<QByteArray> &home = {}) const
    {
        const MacDiskFinder finder(
            [](const QByteArray &place) {
                return std::make_unique<LinuxFileSystem>(DiskRoot(place), Url("/"), std::stop_token());
            },
            computer.root().prefix() + "/me");
        const auto found = finder.find(computer.root().prefix() + folder, home);
        if (const auto *refusal = std::get_if<DiskRefusal>(&found))
            return refusal->inWords(AppLanguage::english)
                .replace(QString::fromUtf8(computer.root().prefix()), QStringLiteral("…"))
                .toStdString();
        const auto &disk = std::get<FoundDisk>(found);
        auto answer = disk.folder.mid(computer.root().prefix().size());
        for (const auto &each : disk.homes)
            answer += ' ' + each.path();
        return (disk.isHomeAlone ? "alone " + answer : answer).toStdString();
    }
};

TEST_F(MacDiskFinderTest, everyHomeIsFoundAndAnyOfThemCanBeNamed)
{
    makeMac("/one", {"anna"});
    makeMac("/two", {"bob", "anna"});
    computer.folder("/two/Users/nothing");
    computer.folder("/two/Volumes/Data/eve/Library");
    computer.link("/two/Users/eve", "/Volumes/Data/eve");
    computer.link("/to two", "two");

    EXPECT_EQ(find("/one"), "/one /Users/anna");
    EXPECT_EQ(find("/to two"), "/two /Users/anna /Users/bob /Users/eve");
    for (const auto &home : {QByteArray("bob"), QByteArray("/Users/bob"), QByteArray("Users/bob/"),
                             computer.root().prefix() + "/two/Users/bob"})
        EXPECT_EQ(find("/two", home), "/two /Users/bob") << home.data();
    EXPECT_EQ(find("/two", "/Volumes/Data/eve"), "/two /Volumes/Data/eve");
    EXPECT_EQ(find("/two", "nothing"),
              "There is no home folder “nothing” on the Mac's disk in “…/two”. Found was: "
              "anna, bob, eve.");
    EXPECT_THAT(find("/two", "Shared/../../me"), testing::StartsWith("There is no home folder “me” "));
    EXPECT_EQ(find("/two/Users/bob"), "/two /Users/bob") << "a home on its disk is not alone";
}

TEST_F(MacDiskFinderTest, aHomeAloneIsOneThatLiesOnNoDisk)
{
    computer.folder("/copies/anna/Library/Caches");
    computer.folder("/copies/anna/Documents/old");
    // Programs from elsewhere make such folders in homes on this computer.
    computer.folder("/me/Library/Caches");
    computer.folder("/me/copies/bob/Library/Preferences");
    computer.folder("/system/Library/Caches");
    computer.folder("/system/System");

    EXPECT_EQ(find("/copies/anna"), "alone /copies/anna /Users/anna");
    EXPECT_EQ(find("/me/copies/bob"), "alone /me/copies/bob /Users/bob");
    EXPECT_THAT(find("/copies/anna/Documents/old"), testing::HasSubstr("lies inside of a home folder"));
    EXPECT_THAT(find("/system"), testing::EndsWith("Found was: Library, System."))
        << "the machine's own Library is nobody's";
}

TEST_F(MacDiskFinderTest, whatCannotBeOpenedIsRefusedInWords)
{
    makeMac("/mac", {"anna"});
    makeMac("/mac/Users/anna/backup", {"bob"});
    makeMac("/empty", {});
    computer.folder("/linux/home");
    computer.folder("/nothing");
    computer.file("/file");
    // Not to be looked at through this computer's own folders.
    computer.folder("/trap/Applications");
    computer.link("/trap/Users", computer.root().prefix() + "/mac/Users");

    EXPECT_EQ(find("/gone"), "There is no folder “…/gone”.");
    EXPECT_EQ(find("/file"), "There is no folder “…/file”.");
    EXPECT_THAT(find("/linux"), testing::EndsWith("Found was: home."));
    EXPECT_THAT(find("/nothing"), testing::EndsWith("Found was: nothing."));
    EXPECT_THAT(find("/empty"), testing::EndsWith("Found was: Guest, Shared."));
    EXPECT_THAT(find("/trap"), testing::HasSubstr("There is no Mac's disk"));
    EXPECT_EQ(
        find("/mac/Users/anna/backup"),
        "“…/mac/Users/anna/backup” lies inside of a home folder on a Mac's disk, “…/mac/Users/anna”. Open that "
        "disk, or copy the folder to another place.");

    std::filesystem::permissions(computer.host("/mac/Users/anna"), std::filesystem::perms(0));
    std::filesystem::permissions(computer.host("/empty"), std::filesystem::perms(0));
    const OrdinaryUser user;
    EXPECT_EQ(find("/mac"),
              "On the Mac's disk in “…/mac” you don't have permission to read the home folder “anna”.");
    EXPECT_EQ(find("/empty"), "You don't have permission to read the folder “…/empty”.");
}
