#include "LinuxFileSystem.h"

#include "TemporaryDisk.h"

#include <QStorageInfo>

#include <gmock/gmock.h>
#include <sys/stat.h>

using testing::Eq;

namespace {

class LinuxFileSystemTest : public testing::Test
{
protected:
    TemporaryDisk disk;
    LinuxFileSystem fileSystem{disk.root(), Url("/home/./me/"), {}};
    LinuxFileSystem computer{{}, Url("/root"), {}};
};

} // namespace

TEST_F(LinuxFileSystemTest, sizesAreBlocksOnDiskNotLengths)
{
    disk.file("/full", QByteArray(100'000, 'x'));
    disk.file("/hole");
    std::filesystem::resize_file(disk.host("/hole"), 1'000'000'000);
    const auto full = fileSystem.resourceValues(Url("/full"));
    struct stat status;
    ASSERT_EQ(stat(disk.host("/full").c_str(), &status), 0);
    EXPECT_EQ(full->totalAllocatedSize, status.st_blocks * 512);
    EXPECT_GE(full->totalAllocatedSize, 100'000);
    EXPECT_EQ(full->allocatedSize, full->totalAllocatedSize);
    EXPECT_LT(fileSystem.resourceValues(Url("/hole"))->totalAllocatedSize, 100'000);
    EXPECT_THAT(fileSystem.resourceValues(Url("/missing")), Eq(std::nullopt));
}

// A file of /proc says that it is empty, and a bundle may link to anything.
TEST_F(LinuxFileSystemTest, readingNeitherTrustsASizeNorWaitsForAPipeOrADevice)
{
    const auto status = computer.readFile(Url("/proc/self/status"), 100'000);
    ASSERT_TRUE(status);
    EXPECT_THAT(status->toStdString(), testing::StartsWith("Name:"));
    EXPECT_THAT(computer.readFile(Url("/proc/self/status"), 10), Eq(std::nullopt));

    mkfifo(disk.host("/pipe").c_str(), 0644);
    disk.link("/zero", "/dev/zero");
    for (const auto &url : {Url("/pipe"), Url("/zero")}) {
        EXPECT_THAT(fileSystem.readFile(url, 1'000'000), Eq(std::nullopt));
        EXPECT_THAT(fileSystem.readFilePart(url, 0, 10), Eq(std::nullopt));
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
