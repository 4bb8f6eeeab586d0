
#include "DesktopTrash.h"
#include "SecondVolume.h"
#include "TrashDirectory.h"
#include "TrashFailure.h"
#include "TrashSandbox.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <iostream>
#include <iterator>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

namespace fs = std::filesystem;

struct LinuxWorkspaceTest : testing::Test
{
    TrashSandbox sandbox;
};

/// Moves the items in a process of its own, which is killed somewhere within the move that comes after so many.
static void moveUntilKilled(const QList<Url> &items, int moves)
{
    int news[2];
    ASSERT_EQ(pipe(news), 0);
    const auto process = fork();
    if (process == 0) {
        for (const auto &item : items) {
            moveToDesktopTrash(DiskRoot(), item);
            if (write(news[1], "", 1) != 1)
                break;
        }
        _exit(0);
    }
    close(news[1]);
    for (char moved; moves > 0 && read(news[0], &moved, 1) == 1;)
        --moves;
    kill(process, SIGKILL);
    EXPECT_EQ(waitpid(process, nullptr, 0), process);
    close(news[0]);
}

TEST_F(LinuxWorkspaceTest, everyItemHasOneOutcomeThatIsTrueOfTheDisk)
{
    const auto host = [&](const QByteArray &path) { return sandbox.url("items/" + path).path().toStdString(); };
    for (const auto *path : {"a/child", "b/child", "locked/x/child", "closed/x", "target"})
        sandbox.file(QByteArray("items/") + path);
    fs::create_symlink("target", host("link"));
    fs::create_symlink("loop", host("loop"));
    fs::create_symlink("closed/x", host("into"));
    const auto user = sandbox.giveToOrdinaryUser();
    chmod(host("locked").c_str(), 0555);
    chmod(host("closed").c_str(), 0444);

    // Nested in one another in both orders, repeated, another spelling, on the way out of sight or gone.
    QList<Url> items{Url("relative"), Url()};
    for (const auto *path : {"gone", "a/child", "a", "a", "./b", "b/child", "locked/x", "locked/x/child",
                             "closed/x", "loop/x", "target", "link", "into"})
        items.append(sandbox.url(QByteArray("items/") + path));
    const auto moved = StartsWith("moved ");
    const auto gone = EndsWith("because it no longer exists.");
    const auto outOfSight = EndsWith("because it can't be looked at. It may still be there.");
    EXPECT_THAT(sandbox.recycle(items),
                ElementsAre(gone, gone, gone, moved, moved, gone, moved, gone,
                            "“x” couldn't be moved to the Trash because you don't have permission to do that.",
                            moved, outOfSight, outOfSight, moved, moved, moved));
    chmod(host("closed").c_str(), 0755);
    for (const auto *kept : {"locked/x", "closed/x"})
        EXPECT_TRUE(fs::exists(host(kept))) << kept;
    for (const auto *away : {"a", "b", "locked/x/child", "target", "link", "into"})
        EXPECT_FALSE(fs::exists(fs::symlink_status(host(away)))) << away;
    EXPECT_EQ(TrashSandbox::trashed(sandbox.trash()).size(), 7u);
    EXPECT_EQ(std::distance(fs::directory_iterator((sandbox.trash() + "/info").toStdString()), {}), 7)
        << "no record of what is not in the Trash";
}

// In a program of its own: the language is read once.
TEST(LinuxWorkspace, reasonsAreInTheSystemsLanguage)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto saysWhy = [] {
        qputenv("LC_ALL", "pl_PL.UTF-8");
        std::cerr << TrashSandbox::recycle({Url("/nowhere/x")}).front();
        _exit(0);
    };
    EXPECT_EXIT(saysWhy(), testing::ExitedWithCode(0),
                "Nie można przenieść „x” do Kosza, ponieważ już nie istnieje");
}

TEST_F(LinuxWorkspaceTest, whatIsAnothersStaysAndSaysSo)
{
    if (getuid() != 0)
        GTEST_SKIP() << "NOT TESTED: what belongs to another user; only root can give anything away";
    const auto own = sandbox.file("own/x").parent().path();
    const QList<Url> items{sandbox.file("theirs/mine"), sandbox.file("everybodys/theirs")};
    for (const auto &path : {own, items[0].path()})
        ASSERT_EQ(chown(path.constData(), OrdinaryUser::number, OrdinaryUser::number), 0);
    // Where everybody may make something, nobody takes what is another's.
    chmod(items[1].parent().path().constData(), 01777);
    qputenv("XDG_DATA_HOME", own);
    const OrdinaryUser user;
    const auto reason = EndsWith("because it belongs to another user and you don't have permission to do that.");
    EXPECT_THAT(sandbox.recycle(items), ElementsAre(reason, reason));
}

TEST_F(LinuxWorkspaceTest, trashThatCannotBeMadeLosesNothing)
{
    const auto item = sandbox.file("items/x");
    sandbox.file(".local", "no folder");
    EXPECT_THAT(sandbox.recycle({item}), ElementsAre(EndsWith("because the Trash didn't accept it.")));
    sandbox.file("locked/x");
    const auto user = sandbox.giveToOrdinaryUser();
    chmod(sandbox.url("locked").path().constData(), 0555);
    qputenv("XDG_DATA_HOME", sandbox.home() + "/locked/data");
    EXPECT_THAT(sandbox.recycle({item}), ElementsAre(EndsWith("because you don't have permission to do that.")));
    EXPECT_TRUE(fs::exists(item.path().toStdString()));
    qputenv("XDG_DATA_HOME", "relative");
    EXPECT_TRUE(homeTrash().endsWith("/.local/share/Trash")) << "it counts as unset";

    const TemporaryDisk memory("/dev/shm");
    memory.file("/x");
    EXPECT_THAT(sandbox.recycle({Url(memory.root().prefix() + "/x")}),
                ElementsAre(EndsWith("because the disk that it is on has no Trash.")));
    EXPECT_TRUE(fs::exists(memory.host("/x")));
}

TEST_F(LinuxWorkspaceTest, nothingIsMovedWhoseRecordIsNotSureToBeOnTheDisk)
{
    const auto item = sandbox.file("items/x");
    sandbox.setFault(TrashSandbox::Fault::writingThroughFails);
    EXPECT_THAT(sandbox.recycle({item}), ElementsAre(EndsWith("because the Trash didn't accept it.")));
    sandbox.setFault(TrashSandbox::Fault::none);

    // A disk that takes the beginning of a record.
    signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit tenBytes{10, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tenBytes);
    const auto answers = sandbox.recycle({item});
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_THAT(answers, ElementsAre(EndsWith("because the disk is full. Free some space and try again.")));
    EXPECT_TRUE(fs::exists(item.path().toStdString()));
    EXPECT_TRUE(fs::is_empty((sandbox.trash() + "/info").toStdString()));
}

TEST_F(LinuxWorkspaceTest, everyFailureIsWordedWhateverTheNameContains)
{
    for (int i = 0; i <= static_cast<int>(TrashFailure::other); ++i)
        EXPECT_THAT(trashFailureText(static_cast<TrashFailure>(i), "a%@%d", AppLanguage::english).toStdString(),
                    StartsWith("“a%@%d” couldn't be moved to the Trash because "));
}

TEST_F(LinuxWorkspaceTest, diskInAFolderIsNotLeftThroughALink)
{
    const auto outside = sandbox.file("outside/precious");
    const auto inside = sandbox.file("disk/items/x");
    const auto disk = sandbox.home() + "/disk";
    fs::create_symlink("../outside", (disk + "/link").toStdString());
    fs::create_symlink("../outside/precious", (disk + "/last").toStdString());
    fs::create_symlink((sandbox.home() + "/outside").toStdString(), (disk + "/straight").toStdString());
    fs::create_symlink("/items", (disk + "/there").toStdString());
    sandbox.file("disk/items/y");
    qputenv("XDG_DATA_HOME", disk + "/data");

    EXPECT_THAT(
        sandbox.recycle({Url("/link/precious"), Url("/../outside/precious"), Url("/"), Url("/items/../items/x"),
                         Url("/last"), Url("/straight/precious"), Url("/there/y")},
                        disk),
        ElementsAre(EndsWith("because it no longer exists."), EndsWith("because it no longer exists."),
                    EndsWith("because it is not on this disk."), "moved file:///data/Trash/files/x",
                    "moved file:///data/Trash/files/last", EndsWith("because it no longer exists."),
                    "moved file:///data/Trash/files/y"));
    EXPECT_TRUE(TrashSandbox::trashed(disk + "/data/Trash").contains(disk + "/items/y"))
        << "not /items/y of this computer";
    EXPECT_TRUE(fs::exists(outside.path().toStdString()));
    EXPECT_FALSE(fs::exists(inside.path().toStdString()));
    EXPECT_TRUE(fs::exists(disk.toStdString()));
}

// Longer by hand: --gtest_filter=*killed* --gtest_repeat=100
TEST_F(LinuxWorkspaceTest, killedAtAnyMomentEveryItemIsWholeInOnePlace)
{
    constexpr int rounds = 48;
    constexpr int itemsARound = 48;
    // Every record is written through to the disk; that takes no time in memory, and a home folder may be there.
    const TrashSandbox memory(fs::exists("/dev/shm") ? "/dev/shm" : "/var/tmp");
    // Below /dev, desktops show no Trash.
    const auto top = sandbox.home() + "/volume";
    const auto trashOfVolume = top + "/.Trash-" + QByteArray::number(getuid());
    const SecondVolume volume(top);
    if (!volume.why().isEmpty())
        std::cout << "NOT TESTED on a second volume: " << volume.why().data() << std::endl;
    int roundsCutShort = 0;
    int movedAtHome = 0;
    int movedInAll = 0;
    for (int round = 0; round < rounds; ++round) {
        // Folders and hard links of one name, at home and on the other volume.
        QList<Url> items;
        for (int i = 0; i < itemsARound / 2; ++i) {
            const auto number = "items/" + QByteArray::number(i);
            for (const auto &[disk, place] :
                 {std::pair(&memory, number), std::pair(&std::as_const(sandbox), "volume/" + number)}) {
                disk->file(place + "/x/b/c");
                items.append(disk->file(place + "/x/a").parent());
                if (i % 2 == 0)
                    continue;
                items.last() = disk->url(place + "/y");
                fs::create_hard_link(disk->url(place + "/x/a").path().toStdString(),
                                     items.last().path().toStdString());
            }
        }
        const auto before = std::pair(memory.snapshot("items"), sandbox.snapshot("volume/items"));

        moveUntilKilled(items, round % itemsARound); // a different moment in every round
        int moved = 0;
        auto trashed = TrashSandbox::trashed(memory.trash());
        movedAtHome += static_cast<int>(trashed.size());
        trashed.merge(TrashSandbox::trashed(trashOfVolume, top));
        for (const auto &[origin, place] : trashed) {
            EXPECT_TRUE(items.contains(Url(origin))) << origin.data();
            EXPECT_FALSE(fs::exists(origin.toStdString())) << origin.data();
            fs::rename(place.toStdString(), origin.toStdString());
            ++moved;
        }
        for (const auto &trash : {memory.trash(), trashOfVolume})
            fs::remove_all(trash.toStdString());
        EXPECT_EQ(std::pair(memory.snapshot("items"), sandbox.snapshot("volume/items")), before)
            << "put back as its records say, everything is as it was";
        fs::remove_all(memory.url("items").path().toStdString());
        fs::remove_all(top.toStdString() + "/items");
        movedInAll += moved;
        roundsCutShort += moved > 0 && moved < itemsARound;
    }
    EXPECT_GT(roundsCutShort, rounds / 2) << "too few were killed at work to show anything";
    EXPECT_GT(movedAtHome, 0);
    EXPECT_EQ(movedInAll > movedAtHome, volume.why().isEmpty());
}
