#include "AllocatedSize.h"
#include "DeepTree.h"
#include "HiddenTypes.h"
#include "LinuxFileSystem.h"
#include "OrdinaryUser.h"
#include "RandomTree.h"
#include "TemporaryDisk.h"

#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

using Paths = std::vector<QByteArray>;

ptrdiff_t openFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

class LinuxDirectoryWalkTest : public testing::Test
{
protected:
    TemporaryDisk disk;
    std::stop_source stop;
    LinuxFileSystem fileSystem{disk.root(), Url("/home"), stop.get_token()};

    /// The paths below `folder` in the walk's order; `visit` is called at every element.
    Paths walk(const Url &folder, const std::function<void(DirectoryEntry &)> &visit = {}) const
    {
        Paths paths;
        for (auto &entry : fileSystem.enumerate(folder)) {
            paths.push_back(entry.url().path());
            if (visit)
                visit(entry);
        }
        return paths;
    }
};

} // namespace

TEST_F(LinuxDirectoryWalkTest, listsWhatIsShownAndEntersNeitherPackagesNorLinks)
{
    disk.file("/top/file");
    disk.file("/top/.hidden");
    disk.file("/top/.hidden folder/file");
    disk.file("/top/Nested.APP/file");
    disk.file("/top/Kit.framework/file");
    disk.file("/top/folder/deep/er");
    disk.file("/elsewhere/file");
    disk.link("/top/link", "../elsewhere");
    disk.link("/top/folder/loop", "..");
    disk.link("/top/dangling", "nowhere");
    mkfifo(disk.host("/top/pipe").c_str(), 0644);

    const std::map<QByteArray, std::pair<FileType, int>> expected{
        {"/top/file", {FileType::regular, 1}},
        {"/top/Nested.APP", {FileType::directory, 1}},
        {"/top/Kit.framework", {FileType::directory, 1}},
        {"/top/Kit.framework/file", {FileType::regular, 2}},
        {"/top/folder", {FileType::directory, 1}},
        {"/top/folder/deep", {FileType::directory, 2}},
        {"/top/folder/deep/er", {FileType::regular, 3}},
        {"/top/folder/loop", {FileType::symbolicLink, 2}},
        {"/top/link", {FileType::symbolicLink, 1}},
        {"/top/dangling", {FileType::symbolicLink, 1}},
        {"/top/pipe", {FileType::other, 1}},
    };
    for (const bool areHidden : {false, true}) {
        const HiddenTypes hidden(areHidden);
        std::map<QByteArray, std::pair<FileType, int>> seen;
        const auto paths = walk(Url("/top"), [&](auto &entry) {
            EXPECT_TRUE(entry.level() == 1 || seen.contains(entry.url().parent().path())) << "parents come first";
            seen[entry.url().path()] = {entry.type(), entry.level()};
            EXPECT_EQ(entry.name(), entry.url().lastPathComponent());
            EXPECT_EQ(entry.resourceValues()->type, entry.type());
        });
        EXPECT_EQ(seen, expected);
        EXPECT_THAT(paths, SizeIs(expected.size()));
    }
}

TEST_F(LinuxDirectoryWalkTest, theFolderItselfMayBeAPackageALinkOrTheRoot)
{
    disk.file("/Some.app/Contents/file");
    disk.link("/link", "Some.app");
    EXPECT_THAT(walk(Url("/Some.app")), ElementsAre("/Some.app/Contents", "/Some.app/Contents/file"));
    EXPECT_THAT(walk(Url("/link")), ElementsAre("/link/Contents", "/link/Contents/file"));
    EXPECT_THAT(walk(Url("/")), UnorderedElementsAre("/Some.app", "/link"));
    for (const char *nothing : {"/Some.app/Contents/file", "/missing", ""})
        EXPECT_THAT(walk(Url(nothing)), IsEmpty());
}

TEST_F(LinuxDirectoryWalkTest, aFolderIsAPackageByItsNameAlone)
{
    for (const char *package : {"Look.qlgenerator", "Letter.rtfd", "Trips.PhotosLibrary", "Old.mpkg"})
        disk.file(QByteArray("/packages/") + package + "/picture.png");
    EXPECT_THAT(walk(Url("/packages")), SizeIs(4));

    disk.file("/runtimes/jbr/Contents/Info.plist");
    const auto library = disk.file("/runtimes/jbr/Contents/Home/libraries", QByteArray(3'000'000, 'x'));
    EXPECT_THAT(walk(Url("/runtimes")), Contains(library.path()));
    EXPECT_GE(allocatedSize(fileSystem, Url("/runtimes")), 3'000'000);
}

TEST_F(LinuxDirectoryWalkTest, skippingAnElementLeavesItsSiblings)
{
    for (const char *path : {"/top/a/inside", "/top/b/inside", "/top/c", "/top/d"})
        disk.file(path);
    EXPECT_THAT(walk(Url("/top"), [](auto &entry) { entry.skipDescendants(); }),
                UnorderedElementsAre("/top/a", "/top/b", "/top/c", "/top/d"));
    Paths listed;
    for (const auto &entry : fileSystem.contentsOfDirectory(Url("/top")))
        listed.push_back(entry.url().path());
    EXPECT_THAT(listed, UnorderedElementsAre("/top/a", "/top/b", "/top/c", "/top/d"));
}

TEST_F(LinuxDirectoryWalkTest, namesOfAnyBytesLeadBackToTheirFiles)
{
    const QByteArray longest(255, '\xfe');
    for (const auto &name :
         {QByteArray("\xff\xfe"), QByteArray("a\nb%41\"'"), QByteArray("\xef\xbf\xbd"), longest})
        disk.file("/top/" + name, "x");
    EXPECT_THAT(walk(Url("/top"), [&](auto &entry) { EXPECT_EQ(fileSystem.readFile(entry.url(), 1), "x"); }),
                UnorderedElementsAre("/top/\xff\xfe", "/top/a\nb%41\"'", "/top/\xef\xbf\xbd", "/top/" + longest));
}

TEST_F(LinuxDirectoryWalkTest, randomTreesAreSeenAsAFunctionThatCallsItselfSeesThem)
{
    for (unsigned number = 0; number < 15; ++number) {
        const RandomTree tree(disk, disk.folder("/" + QByteArray::number(number)), number);
        const HiddenTypes hidden(number % 3 == 0);
        const auto shown = [](DirectoryEntry &entry) {
            return RandomTree::Entry{entry.url().path(), entry.type(),
                                     *entry.resourceValues()->totalAllocatedSize};
        };
        std::vector<RandomTree::Entry> seen;
        for (auto &entry : fileSystem.enumerate(tree.top()))
            seen.push_back(shown(entry));
        const auto expected = tree.walked();
        EXPECT_TRUE(seen == expected) << "number " << number << ": " << seen.size() << " of " << expected.size();
    }
}

TEST_F(LinuxDirectoryWalkTest, anyDepthIsWalkedOnFewDescriptors)
{
    constexpr int depth = 5000;
    const DeepTree tree(disk.host("/top"), depth);
    // A folder whose listing is not read to its end when it has to be closed.
    for (int i = 0; i < 3000; ++i)
        disk.file("/top/m/m/m/" + QByteArray::number(i));

    const auto before = openFiles();
    int files = 0, deepest = 0, reachable = 0;
    ptrdiff_t most = 0;
    for (const auto &entry : fileSystem.enumerate(Url("/top"))) {
        if (entry.type() == FileType::regular)
            files += entry.resourceValues().has_value();
        if (entry.level() > deepest) {
            deepest = entry.level();
            most = std::max(most, openFiles() - before);
            reachable += deepest % 1000 == 0 && fileSystem.exists(entry.url());
        }
    }
    EXPECT_EQ(files, 2 * depth + 3000);
    EXPECT_EQ(deepest, depth + 1);
    EXPECT_EQ(reachable, depth / 1000) << "a path longer than the kernel takes leads nowhere";
    EXPECT_LE(most, 32);
    EXPECT_EQ(openFiles(), before);
}

TEST_F(LinuxDirectoryWalkTest, aFolderThatIsMovedAwayOrReplacedWhileItIsWalkedDoesNotLeadOutOfTheTree)
{
    const auto isForeign = [](const QByteArray &path) { return path.contains("stranger"); };
    for (const bool isReplaced : {false, true}) {
        const DeepTree tree(disk.host("/top"), 100);
        const DeepTree elsewhere(disk.host("/elsewhere"), 0);
        disk.file("/elsewhere/stranger");
        const QByteArray moved = "/top" + QByteArray("/m").repeated(20);
        const auto paths = walk(Url("/top"), [&](auto &entry) {
            EXPECT_TRUE(entry.resourceValues()) << "it is looked up in the folder that it was listed in";
            if (entry.level() != 90 || std::filesystem::exists(disk.host("/elsewhere/m")))
                return;
            std::filesystem::rename(disk.host(moved), disk.host("/elsewhere/m"));
            if (isReplaced)
                disk.file(moved + "/m/stranger");
        });
        EXPECT_TRUE(std::filesystem::exists(disk.host("/elsewhere/m")));
        EXPECT_TRUE(std::ranges::none_of(paths, isForeign)) << isReplaced;
        // All that is left at its place is found again: the files of the levels above.
        for (int level = 0; level < 20; ++level)
            EXPECT_THAT(paths, Contains("/top" + QByteArray("/m").repeated(level) + "/a")) << isReplaced;
    }
}

TEST_F(LinuxDirectoryWalkTest, whatBecomesALinkOrVanishesAfterItWasListedIsPassedOver)
{
    for (const char *path : {"/top/a/1", "/top/b/2", "/top/c/3"})
        disk.file(path);
    disk.file("/elsewhere/private");
    const auto paths = walk(Url("/top"), [&](auto &entry) {
        std::filesystem::remove_all(disk.host(entry.url().path()));
        disk.link(entry.url().path(), "../elsewhere");
    });
    EXPECT_THAT(paths, UnorderedElementsAre("/top/a", "/top/b", "/top/c"));

    disk.file("/bottom/only");
    walk(Url("/bottom"), [&](auto &entry) {
        std::filesystem::remove(disk.host("/bottom/only"));
        EXPECT_FALSE(entry.resourceValues());
    });
}

TEST_F(LinuxDirectoryWalkTest, unreadableFoldersArePassedOver)
{
    disk.file("/top/before/file", "1234");
    disk.file("/top/locked/file", "1234");
    disk.file("/top/zlast/file", "1234");
    std::filesystem::permissions(disk.host("/top/locked"), std::filesystem::perms::none);
    const OrdinaryUser user;
    EXPECT_THAT(walk(Url("/top")), UnorderedElementsAre("/top/before", "/top/before/file", "/top/locked",
                                                        "/top/zlast", "/top/zlast/file"));
    EXPECT_THAT(walk(Url("/top/locked")), IsEmpty());
    EXPECT_EQ(allocatedSize(fileSystem, Url("/top")), 2 * allocatedSize(fileSystem, Url("/top/before/file")));
    EXPECT_FALSE(fileSystem.readFile(Url("/top/locked/file"), 100));
}

TEST_F(LinuxDirectoryWalkTest, everyEntryOfALargeFolderIsListedOnceUntilTheProgramQuits)
{
    constexpr int count = 20'000;
    disk.file("/top/0");
    for (int i = 1; i < count; ++i)
        std::filesystem::create_hard_link(disk.host("/top/0"), disk.host("/top/" + QByteArray::number(i)));
    auto paths = walk(Url("/top"));
    std::ranges::sort(paths);
    EXPECT_THAT(paths, SizeIs(count));
    EXPECT_EQ(std::ranges::adjacent_find(paths), paths.end());

    const auto walkThatIsStopped = [&] { return walk(Url("/top"), [&](auto &) { stop.request_stop(); }); };
    EXPECT_THAT(walkThatIsStopped(), SizeIs(1));
    EXPECT_THAT(walkThatIsStopped(), IsEmpty());
}
