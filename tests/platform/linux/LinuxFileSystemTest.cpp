#include "LinuxFileSystem.h"

#include "TemporaryDisk.h"
#include "WhatIsAt.h"

#include <QStorageInfo>

#include <gmock/gmock.h>
#include <sys/stat.h>

using testing::Eq;

/// The disk of a Mac in a folder, of which a neighbour on the same computer is to be kept.
struct LinuxFileSystemTest : testing::Test
{
    TemporaryDisk neighbour;
    TemporaryDisk disk;
    LinuxFileSystem fileSystem{disk.root(), Url("/Users/anna"), {}};
    const Url documents = disk.link("/Users/anna/Documents", "/Volumes/Data");
};

// A file of /proc says that it is empty, and a bundle may link to anything.
TEST_F(LinuxFileSystemTest, readingNeitherTrustsASizeNorWaitsForAPipeOrADevice)
{
    const LinuxFileSystem computer({}, Url("/root"), {});
    const auto status = computer.readFile(Url("/proc/self/status"), 100'000);
    ASSERT_TRUE(status);
    EXPECT_THAT(status->toStdString(), testing::StartsWith("Name:"));
    EXPECT_THAT(computer.readFile(Url("/proc/self/status"), 10), Eq(std::nullopt));

    const auto pipe = disk.host("/pipe");
    mkfifo(pipe.c_str(), 0644);
    for (const auto &url : {Url(QByteArray::fromStdString(pipe)), Url("/dev/zero")}) {
        EXPECT_THAT(computer.readFile(url, 1'000'000), Eq(std::nullopt));
        EXPECT_THAT(computer.readFilePart(url, 0, 10), Eq(std::nullopt));
    }
}

TEST_F(LinuxFileSystemTest, theVolumeIsDescribedAsTheSystemDoes)
{
    const QStorageInfo expected(QString::fromStdString(disk.host("/")));
    const auto volume = fileSystem.volumeValues(Url("/"));
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->totalCapacity, expected.bytesTotal());
    EXPECT_NEAR(static_cast<double>(*volume->availableCapacity), static_cast<double>(expected.bytesAvailable()),
                1e9);
    EXPECT_EQ(volume->name.value_or(QString()), expected.name());
    EXPECT_FALSE(volume->availableCapacityForImportantUsage);
    EXPECT_FALSE(fileSystem.volumeValues(Url("/missing")));
}

TEST_F(LinuxFileSystemTest, linksLeadWhereTheyLedOnTheMac)
{
    disk.file("/private/var/db/dslocal", "on the disk");
    disk.file("/Volumes/Data/letter", "hers");
    disk.link("/var", "private/var");
    disk.link("/private/var/above", "../../../../Users/anna");
    disk.link("/Volumes/Macintosh HD", "/");

    EXPECT_EQ(fileSystem.readFile(Url("/var/db/dslocal"), 100), "on the disk");
    EXPECT_EQ(fileSystem.readFile(documents / "letter", 100), "hers");
    EXPECT_EQ(fileSystem.readFile(Url("/var/above/Documents/letter"), 100), "hers");
    EXPECT_EQ(fileSystem.resolved(documents / "letter"), Url("/Volumes/Data/letter"));
    EXPECT_EQ(fileSystem.resolved(Url("/Volumes/Macintosh HD/var")), Url("/private/var"));
    EXPECT_EQ(fileSystem.resolved(Url("/Volumes/Macintosh HD")), Url("/"));
    EXPECT_EQ(whatIsAt(fileSystem, documents),
              "exists isDirectory isExecutable resolved volumeValues letter letter ");
    EXPECT_TRUE(fileSystem.isGone(Url("/var/nothing")));
}

TEST_F(LinuxFileSystemTest, noLinkLeadsIntoThisComputer)
{
    neighbour.file("/secret/file", "theirs");
    std::filesystem::permissions(neighbour.host("/secret/file"), std::filesystem::perms::owner_all);
    const auto outside = QByteArray::fromStdString(neighbour.host("/secret").native());
    const auto climb = QByteArray("../").repeated(40);
    disk.folder("/Users/anna/deep");
    // Straight, by climbing, by way of another link, by a process's own view of the computer.
    disk.link("/Users/anna/straight", outside);
    disk.link("/Users/anna/deep/climbing", climb + outside.mid(1));
    disk.link("/Users/anna/twice", "straight");
    disk.link("/Users/anna/proc", "/proc/self/root" + outside);
    disk.link("/Users/anna/file", outside + "/file");
    // Whose front is opened before its end is: what leads out of that is not looked at.
    const Url distant("/Users/anna" + QByteArray("/.").repeated(4'000) + "/deep/climbing");

    for (const auto &link : {Url("/Users/anna/straight"), Url("/Users/anna/deep/climbing"),
                             Url("/Users/anna/twice"), Url("/Users/anna/proc"), distant,
                             Url("/Users/anna/deep/../straight"), Url(outside), Url("/../../.." + outside)}) {
        const auto *nothing = link == distant ? "" : "isGone ";
        EXPECT_EQ(whatIsAt(fileSystem, link), nothing) << link.path().data();
        EXPECT_EQ(whatIsAt(fileSystem, link / "file"), nothing) << link.path().data();
        EXPECT_FALSE(fileSystem.resourceValues(link / "file")) << link.path().data();
    }
    EXPECT_FALSE(fileSystem.readFile(Url("/Users/anna/file"), 100));
    EXPECT_EQ(fileSystem.resourceValues(Url("/Users/anna/file"))->type, FileType::symbolicLink);
}

TEST_F(LinuxFileSystemTest, aHomeFolderAloneIsAtItsPlaceAndNothingElseIsThere)
{
    disk.file("/Library/Caches/org.acme/data", "cached");
    disk.link("/mine", "/Users/anna/Library");
    const DiskRoot root(disk.root().prefix(), Url("/Users/anna"));
    const LinuxFileSystem home(root, Url("/Users/anna"), {});

    EXPECT_EQ(home.readFile(Url("/Users/anna/Library/Caches/org.acme/data"), 100), "cached");
    EXPECT_EQ(home.resolved(Url("/Users/anna/Library")), Url("/Users/anna/Library"));
    EXPECT_TRUE(home.isDirectory(Url("/Users/anna")));
    for (const auto *path : {"/", "/Users", "/Library", "/Users/ann", "/Users/annabel/Library", "/Users/anna/mine",
                             "/Users/anna/../../Library"})
        EXPECT_FALSE(home.exists(Url(path))) << path;
    EXPECT_EQ(root.urlFor(root.prefix() + "/Library"), Url("/Users/anna/Library"));
    EXPECT_EQ(home.volumeValues(Url("/"))->totalCapacity, home.volumeValues(Url("/Users/anna"))->totalCapacity);
}

// What is in the disk's place afterwards would pass for a disk from which everything is gone.
TEST_F(LinuxFileSystemTest, aDiskIsTheFolderThatItWasOpenedAsWhateverComesInItsPlace)
{
    disk.file("/Users/anna/file", "hers");
    const auto folder = disk.host("/");
    const auto aside = folder.native() + "-aside";
    std::filesystem::rename(folder, aside);
    std::filesystem::create_directory(folder);
    EXPECT_EQ(fileSystem.readFile(Url("/Users/anna/file"), 100), "hers");
    std::filesystem::remove(folder);
    std::filesystem::rename(aside, folder);
}
