#include "AllocatedSize.h"

#include "InMemoryFileSystem.h"

#include <gtest/gtest.h>

/// Notices what is looked at outside of a walk, where one that does not answer holds up the others.
class WalkedDisk : public InMemoryFileSystem
{
public:
    void walk(const QList<Url> &folders, const FolderVisitor &visit, const FolderChoice &enters) const override
    {
        m_isWalked = true;
        InMemoryFileSystem::walk(folders, visit, enters);
        m_isWalked = false;
    }
    std::optional<ResourceValues> resourceValues(const Url &url) const override
    {
        EXPECT_TRUE(m_isWalked) << url.path().constData();
        return InMemoryFileSystem::resourceValues(url);
    }

private:
    mutable bool m_isWalked = false;
};

TEST(AllocatedSizeTest, itemsAreMeasuredSideBySideByWhatTheFileSystemTells)
{
    WalkedDisk disk;
    disk.file("/Some.app/file", 100);
    disk.file("/Some.app/deep/er/file", 20);
    disk.link("/Some.app/link", "/elsewhere");
    for (const auto *path : {"/elsewhere/file", "/Some.app/.hidden", "/Some.app/.hidden folder/file",
                             "/Some.app/Contents/Nested.APP/file", "/Some.app/locked/file", "/Some.app/vanished"})
        disk.file(path, 1'000'000);
    disk.makeUnreadable("/Some.app/locked");
    disk.makeVanishing("/Some.app/vanished");
    disk.device("/Some.app/device");
    disk.link("/dangling", "/nowhere");
    disk.file("/whole", 700, 500);
    disk.file("/data", std::nullopt, 500);
    disk.file("/unknown", std::nullopt, std::nullopt);

    QList<Url> items;
    for (const auto *path : {"/Some.app/link", "/Some.app", "/missing", "/Some.app/file", "/dangling",
                             "/Some.app/device", "/whole", "/data", "/unknown"})
        items.append(Url(path));
    EXPECT_EQ(allocatedSizes(disk, items), QList<qint64>({1, 121, 0, 100, 1, 0, 700, 500, 0}));
}
