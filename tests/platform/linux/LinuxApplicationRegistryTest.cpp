#include "LinuxApplicationRegistry.h"

#include "TestDisk.h"

#include <gtest/gtest.h>

struct LinuxApplicationRegistryTest : testing::Test
{
    TestDisk disk;

    ~LinuxApplicationRegistryTest() override
    {
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_DATA_DIRS");
    }

    std::optional<QByteArray> pathOf(const QString &identifier, const DiskRoot &root = DiskRoot()) const
    {
        const LinuxApplicationRegistry registry(root, disk);
        const auto url = registry.index()->urlForApplication(identifier);
        return url ? std::optional(url->path()) : std::nullopt;
    }
};

TEST_F(LinuxApplicationRegistryTest, desktopEntriesAreKnownByTheirIds)
{
    qputenv("XDG_DATA_HOME", "/Users/me/data");
    qputenv("XDG_DATA_DIRS", "relative:/usr/share/:/opt/share");
    disk.file("~/data/applications/org.gnome.Maps.desktop");
    disk.file("~/.local/share/applications/org.elsewhere.desktop");
    disk.file("/usr/share/applications/org.gnome.Maps.desktop");
    disk.file("/usr/share/applications/org/kde/okular.desktop");
    disk.file("/opt/share/applications/org.opt.tool.desktop");
    disk.file("/opt/share/applications/org.opt.list");
    disk.folder("/opt/share/applications/org.opt.folder.desktop");
    disk.link("/opt/share/applications/org.linked.desktop", "/usr/share/applications/org.gnome.Maps.desktop");
    disk.link("/opt/share/applications/org.removed.desktop", "/nowhere");
    disk.file("/relative/applications/org.relative.desktop");

    EXPECT_EQ(pathOf("org.gnome.Maps"), "/Users/me/data/applications/org.gnome.Maps.desktop");
    EXPECT_EQ(pathOf("org-kde-okular"), "/usr/share/applications/org/kde/okular.desktop");
    EXPECT_TRUE(pathOf("org.opt.tool"));
    EXPECT_TRUE(pathOf("org.linked"));
    for (const auto *identifier :
         {"org.elsewhere", "org.opt.list", "org.opt.folder", "org.removed", "org.relative"})
        EXPECT_FALSE(pathOf(identifier)) << identifier;
}

TEST_F(LinuxApplicationRegistryTest, dataFoldersOutsideOfTheDiskDoNotCount)
{
    qputenv("XDG_DATA_DIRS", "/disk/usr/share:/usr/share");
    disk.file("~/.local/share/applications/org.mine.desktop");
    disk.file("/usr/share/applications/org.inside.desktop");
    disk.file("/disk/usr/share/applications/org.outside.desktop");
    const DiskRoot root("/disk");

    EXPECT_TRUE(pathOf("org.mine", root));
    EXPECT_TRUE(pathOf("org.inside", root));
    EXPECT_FALSE(pathOf("org.outside", root));

    qputenv("XDG_DATA_DIRS", "");
    EXPECT_TRUE(pathOf("org.inside"));
    EXPECT_FALSE(pathOf("org.inside", root));
}
