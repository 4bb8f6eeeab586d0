#include "DiskRoot.h"

#include <gmock/gmock.h>

using testing::Eq;

TEST(DiskRoot, everyLocationStaysOnTheDiskAndComesBack)
{
    const DiskRoot disk("/tmp/disk/");
    EXPECT_EQ(disk.hostPath(Url("/")), "/tmp/disk");
    EXPECT_EQ(disk.hostPath(Url("/Users/a..b")), "/tmp/disk/Users/a..b");
    EXPECT_EQ(disk.hostPath(Url("/../../etc/passwd")), "/tmp/disk/etc/passwd");
    EXPECT_EQ(disk.urlFor("/tmp/disk/a\xff"), Url("/a\xff"));
    EXPECT_EQ(disk.urlFor("/tmp/disk"), Url("/"));
    for (const char *outside : {"/tmp/diskette/a", "/tmp", "tmp/disk/a", "", "/tmp/disk/../a"})
        EXPECT_THAT(disk.urlFor(outside), Eq(std::nullopt)) << outside;
}

TEST(DiskRoot, withoutAPrefixPathsAreTheComputersOwn)
{
    const DiskRoot disk;
    EXPECT_EQ(disk.hostPath(Url("/")), "/");
    EXPECT_EQ(disk.hostPath(Url("/link/../a")), "/link/../a");
    EXPECT_EQ(disk.urlFor("/"), Url("/"));
    EXPECT_EQ(disk.urlFor("/etc"), Url("/etc"));
    EXPECT_THAT(disk.urlFor("etc"), Eq(std::nullopt));
    for (const auto &impossible : {Url(), Url("relative"), Url(QByteArray("/etc\0/passwd", 12))})
        EXPECT_EQ(disk.hostPath(impossible), "");
}
