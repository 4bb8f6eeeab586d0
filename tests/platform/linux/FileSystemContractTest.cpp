// What `FileSystem` promises, of the disk that the program works on and of the one in memory that stands in for it.

#include "InMemoryFileSystem.h"
#include "LinuxFileSystem.h"
#include "OrdinaryUser.h"
#include "TemporaryDisk.h"
#include "WhatIsAt.h"

#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

using testing::AllOf;
using testing::Contains;
using testing::UnorderedElementsAre;

class DiskInMemory : public InMemoryFileSystem
{
public:
    DiskInMemory() { setVolume(VolumeValues{}); }
    const FileSystem &fileSystem() const { return *this; }
    void lock(const QByteArray &path) { makeUnreadable(path); }
};

class RealDisk
{
public:
    const FileSystem &fileSystem() const { return m_fileSystem; }
    void fileWithContent(const QByteArray &path, const QByteArray &content) { m_disk.file(path, content); }
    void link(const QByteArray &path, const QByteArray &target) { m_disk.link(path, target); }
    void executable(const QByteArray &path)
    {
        m_disk.file(path);
        std::filesystem::permissions(m_disk.host(path), std::filesystem::perms(0755));
    }
    /// To whoever is not root, and from now on nobody is.
    void lock(const QByteArray &path)
    {
        m_user.reset();
        std::filesystem::permissions(m_disk.host(path), std::filesystem::perms(0));
        m_user.emplace();
    }

private:
    TemporaryDisk m_disk;
    LinuxFileSystem m_fileSystem{m_disk.root(), Url("/Users/./me/"), {}};
    std::optional<OrdinaryUser> m_user;
};

using Paths = std::vector<QByteArray>;

static Paths listed(DirectoryEnumeration entries)
{
    Paths paths;
    for (const auto &entry : entries)
        paths.push_back(entry.url().path());
    return paths;
}

template <typename Disk> struct FileSystemContract : testing::Test
{
    /// What a walk shows, in the order of the places that it tells; `visit` is called at every element.
    Paths walked(const QByteArray &folder, const std::function<void(DirectoryEntry &)> &visit = {}) const
    {
        std::mutex mutex;
        std::map<WalkPlace, QByteArray> found;
        m_fileSystem.walk({Url("/elsewhere"), Url(folder)}, [&](FolderPart &part) {
            for (auto &entry : part) {
                const std::lock_guard lock(mutex);
                EXPECT_EQ(part.walkedFolder(), 1);
                EXPECT_EQ(entry.name(), entry.url().lastPathComponent());
                EXPECT_EQ(entry.resourceValues()->type, entry.type());
                found.emplace(entry.place(), entry.url().path());
                if (visit)
                    visit(entry);
            }
        });
        std::set<QByteArray> parents{folder};
        Paths paths;
        for (const auto &[place, path] : found) {
            EXPECT_TRUE(parents.contains(Url(path).parent().path()))
                << path.constData() << " comes before its folder";
            EXPECT_EQ(place.size(), path.sliced(folder.size()).count('/') + 1U + (folder == "/"));
            parents.insert(path);
            paths.push_back(path);
        }
        return paths;
    }

    Disk m_disk;
    const FileSystem &m_fileSystem = m_disk.fileSystem();
};
using Disks = testing::Types<DiskInMemory, RealDisk>;

TYPED_TEST_SUITE(FileSystemContract, Disks);

TYPED_TEST(FileSystemContract, whatNoFileCanHaveLeadsToNothing)
{
    auto &disk = this->m_disk;
    disk.executable("/file");
    disk.link("/dangling", "nowhere");
    disk.link("/loop", "loop");
    for (const auto &path : {QByteArray(), QByteArray("file"), QByteArray("."), QByteArray("/fi\0le", 6),
                             QByteArray("/file/."), QByteArray("/file/below"), QByteArray("/missing")}) {
        EXPECT_EQ(whatIsAt(this->m_fileSystem, Url(path)), "isGone ") << path.constData();
        EXPECT_FALSE(this->m_fileSystem.resourceValues(Url(path))) << path.constData();
    }
    EXPECT_EQ(whatIsAt(this->m_fileSystem, Url("/dangling")), "isGone ");
    for (const auto &path : {QByteArray("/loop"), '/' + QByteArray(256, 'x')})
        EXPECT_EQ(whatIsAt(this->m_fileSystem, Url(path)), "") << "nobody can tell " << path.constData();
    EXPECT_FALSE(this->m_fileSystem.isGone(Url("/file")));
    EXPECT_EQ(this->m_fileSystem.homeDirectory(), Url("/Users/me"));
}

TYPED_TEST(FileSystemContract, linksAreFollowedAndDescribedAsThemselves)
{
    auto &disk = this->m_disk;
    const auto &fileSystem = this->m_fileSystem;
    disk.executable("/folder/tool");
    disk.fileWithContent("/folder/text", "text");
    disk.link("/to tool", "folder/tool");
    disk.link("/to folder", "folder");
    disk.link("/dangling", "nowhere");

    EXPECT_EQ(whatIsAt(fileSystem, Url("/to tool")),
              "exists isExecutable resolved readFile readFilePart volumeValues ");
    EXPECT_EQ(fileSystem.resolved(Url("/to folder/tool")), Url("/folder/tool"));
    EXPECT_EQ(fileSystem.readFile(Url("/to folder/text"), 4), "text");
    EXPECT_FALSE(fileSystem.isExecutable(Url("/folder/text")));
    EXPECT_TRUE(fileSystem.isDirectory(Url("/to folder")));
    EXPECT_TRUE(fileSystem.isExecutable(Url("/to folder"))) << "a folder that may be entered";
    for (const auto *link : {"/to tool", "/to folder", "/dangling"})
        EXPECT_EQ(fileSystem.resourceValues(Url(link))->type, FileType::symbolicLink) << link;
}

TYPED_TEST(FileSystemContract, aFileIsReadWholeUpToTheLimitAndInPart)
{
    const QByteArray content = QByteArray(100'000, 'x') + QByteArray(100'000, 'y');
    this->m_disk.fileWithContent("/folder/file", content);
    const auto &fileSystem = this->m_fileSystem;
    const Url file("/folder/file");
    EXPECT_EQ(fileSystem.readFile(file, 200'000), content);
    EXPECT_FALSE(fileSystem.readFile(file, 199'999));
    EXPECT_FALSE(fileSystem.readFile(file, -1));
    EXPECT_FALSE(fileSystem.readFile(Url("/folder"), 100));
    EXPECT_EQ(fileSystem.readFilePart(file, 199'990, 100), content.last(10));
    EXPECT_EQ(fileSystem.readFilePart(file, 70'000, 70'000), content.mid(70'000, 70'000));
    EXPECT_EQ(fileSystem.readFilePart(file, 300'000, 10), QByteArray());
    EXPECT_EQ(fileSystem.readFilePart(file, 5, -1), QByteArray());
    EXPECT_FALSE(fileSystem.readFilePart(file, -1, 10));
    EXPECT_FALSE(fileSystem.readFilePart(Url("/folder"), 0, 10));
}

TYPED_TEST(FileSystemContract, packagesAndLinksAreListedAndNotEntered)
{
    auto &disk = this->m_disk;
    // A folder is a package by its name alone.
    for (const auto *path :
         {"/top/.hidden", "/top/.folder/file", "/top/Nested.APP/file", "/top/Old.mpkg/file",
          "/top/Look.qlgenerator/file", "/top/Letter.rtfd/file", "/top/Trips.PhotosLibrary/file",
          "/top/Disk.sparsebundle/file", "/top/Kit.framework/file", "/top/jbr/Contents/Info.plist"})
        disk.fileWithContent(path, "x");
    disk.link("/top/link", "Kit.framework");
    disk.link("/top/dangling", "nowhere");

    EXPECT_THAT(this->walked("/top"),
                UnorderedElementsAre("/top/Nested.APP", "/top/Old.mpkg", "/top/Look.qlgenerator",
                                     "/top/Letter.rtfd", "/top/Trips.PhotosLibrary", "/top/Disk.sparsebundle",
                                     "/top/Kit.framework", "/top/Kit.framework/file", "/top/jbr",
                                     "/top/jbr/Contents", "/top/jbr/Contents/Info.plist", "/top/link",
                                     "/top/dangling"));
    EXPECT_THAT(this->walked("/top/Nested.APP"), UnorderedElementsAre("/top/Nested.APP/file"));
    EXPECT_THAT(this->walked("/top/link"), UnorderedElementsAre("/top/link/file"));
    EXPECT_THAT(this->walked("/"), AllOf(Contains("/top"), Contains("/top/link")));
    EXPECT_THAT(listed(this->m_fileSystem.contentsOfDirectory(Url("/"))), Contains("/top"));
    EXPECT_THAT(listed(this->m_fileSystem.contentsOfDirectory(Url("/top/jbr"))),
                UnorderedElementsAre("/top/jbr/Contents"));
}

TYPED_TEST(FileSystemContract, whatIsSkippedOrNotChosenIsNotEntered)
{
    for (const auto *path : {"/top/a/inside", "/top/b/inside", "/top/c", "/other/file"})
        this->m_disk.fileWithContent(path, "x");
    EXPECT_THAT(this->walked("/top", [](auto &entry) { entry.skipDescendants(); }),
                UnorderedElementsAre("/top/a", "/top/b", "/top/c"));

    // Asked of what is no folder as well.
    const QList<Url> folders{Url("/top"), Url("/other"), Url("/top/c"), Url("/missing")};
    std::mutex mutex;
    std::vector<size_t> asked, shown;
    const auto visit = [&](FolderPart &part) {
        for (const auto &entry : part) {
            const std::lock_guard lock(mutex);
            EXPECT_EQ(entry.level(), 1);
            shown.push_back(part.walkedFolder());
        }
    };
    this->m_fileSystem.walk(folders, visit, [&](size_t folder) {
        const std::lock_guard lock(mutex);
        asked.push_back(folder);
        return folder != 0;
    });
    EXPECT_THAT(asked, UnorderedElementsAre(0, 1, 2, 3));
    EXPECT_THAT(shown, UnorderedElementsAre(1));
}

TYPED_TEST(FileSystemContract, whatMayNotBeEnteredOrReadIsPassedOver)
{
    auto &disk = this->m_disk;
    const auto &fileSystem = this->m_fileSystem;
    disk.executable("/top/locked/tool");
    disk.fileWithContent("/top/file", "x");
    disk.lock("/top/locked");
    disk.lock("/top/file");

    EXPECT_EQ(whatIsAt(fileSystem, Url("/top/locked/tool")), "");
    EXPECT_THAT(this->walked("/top"), UnorderedElementsAre("/top/locked", "/top/file"));
    EXPECT_EQ(whatIsAt(fileSystem, Url("/top/locked")), "exists isDirectory resolved volumeValues ");
    EXPECT_EQ(whatIsAt(fileSystem, Url("/top/file")), "exists resolved volumeValues ");
    EXPECT_EQ(fileSystem.resourceValues(Url("/top/file"))->type, FileType::regular);
}
