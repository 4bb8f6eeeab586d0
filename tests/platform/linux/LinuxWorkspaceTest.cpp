#include "TrashFailure.h"
#include "TrashSandbox.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

namespace fs = std::filesystem;

namespace {

class LinuxWorkspaceTest : public testing::Test
{
protected:
    static constexpr uid_t nobody = 65534;

    TrashSandbox sandbox;

    /// The home folder and everything in it is another user's from now on, and programs run as that user.
    void giveToOtherUser()
    {
        sandbox.user = nobody;
        ASSERT_EQ(chown(sandbox.home().constData(), nobody, nobody), 0);
        for (const auto &entry : fs::recursive_directory_iterator(sandbox.home().toStdString()))
            ASSERT_EQ(lchown(entry.path().c_str(), nobody, nobody), 0);
    }
};

} // namespace

TEST_F(LinuxWorkspaceTest, whatCannotBeMovedStaysAndSaysWhyInTheSystemsLanguage)
{
    const auto kept = sandbox.file("locked/kept");
    const auto longName = sandbox.file("items/" + QByteArray(255, 'n'));
    // Here GIO would take the item and lose where it came from.
    const auto unrecordable = sandbox.file("items/" + QByteArray(245, 'n'));
    const auto moved = sandbox.file("items/moved");
    const QList<Url> items{kept, longName, unrecordable, sandbox.url("items/gone"), moved, Url("relative"), Url()};
    if (getuid() == 0)
        giveToOtherUser();
    chmod(kept.parent().path().constData(), 0555);
    const auto before = sandbox.snapshot("locked");

    EXPECT_THAT(
        sandbox.recycle(items),
        ElementsAre("failed “kept” couldn't be moved to the Trash because you don't have permission to do "
                    "that.",
                    EndsWith("because its name is too long. Make it shorter and try again."),
                    EndsWith("because the Trash could not note where it came from: the disk is full or the "
                             "name is too long."),
                    EndsWith("because it no longer exists."), StartsWith("moved "),
                    EndsWith("because it no longer exists."), EndsWith("because it no longer exists.")));
    EXPECT_EQ(sandbox.snapshot("locked"), before);
    EXPECT_TRUE(fs::exists(longName.path().toStdString()) && fs::exists(unrecordable.path().toStdString()));
    EXPECT_EQ(std::distance(fs::directory_iterator((sandbox.trash() + "/info").toStdString()), {}), 1)
        << "no record of what is not in the Trash";

    sandbox.environment.insert("LC_ALL", "pl_PL.UTF-8");
    EXPECT_THAT(sandbox.recycle({kept}),
                ElementsAre("failed Nie można przenieść „kept” do Kosza, ponieważ nie masz do tego uprawnień."));
}

TEST_F(LinuxWorkspaceTest, trashThatCannotBeMadeLosesNothing)
{
    const auto item = sandbox.file("items/x");
    sandbox.file(".local", "no folder");
    EXPECT_THAT(sandbox.recycle({item}), ElementsAre(EndsWith("because the Trash didn't accept it.")));
    EXPECT_TRUE(fs::exists(item.path().toStdString()));

    const Url inMemory("/dev/shm/tarnvale-" + QByteArray::number(getpid()));
    const auto file = fopen(inMemory.path().constData(), "w");
    ASSERT_TRUE(file);
    fclose(file);
    EXPECT_THAT(sandbox.recycle({inMemory}),
                ElementsAre(EndsWith("because the disk that it is on has no Trash.")));
    EXPECT_EQ(unlink(inMemory.path().constData()), 0) << "it is still there";
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
    sandbox.environment.insert("XDG_DATA_HOME", QString::fromUtf8(disk + "/data"));

    EXPECT_THAT(sandbox.recycle({Url("/link/precious"), Url("/../outside/precious"), Url("/"),
                                 Url("/items/../items/x"), Url("/last")},
                                disk),
                ElementsAre(EndsWith("because it is not on this disk."), EndsWith("because it no longer exists."),
                            EndsWith("because it is not on this disk."), "moved file:///data/Trash/files/x",
                            "moved file:///data/Trash/files/last"));
    EXPECT_TRUE(fs::exists(outside.path().toStdString()));
    EXPECT_FALSE(fs::exists(inside.path().toStdString()));
    EXPECT_TRUE(fs::exists(disk.toStdString()));
}

TEST_F(LinuxWorkspaceTest, killedAtAnyMomentEveryItemIsWholeInOnePlace)
{
    constexpr int rounds = 100;
    constexpr int itemsARound = 50;
    // GIO writes every record through to the disk; that takes no time in memory, and a home folder may be there.
    const TrashSandbox memory(fs::exists("/dev/shm") ? "/dev/shm" : "");
    int roundsCutShort = 0;
    for (int round = 0; round < rounds; ++round) {
        QList<Url> items;
        for (int i = 0; i < itemsARound; ++i)
            items.append(memory.file("items/" + QByteArray::number(round * itemsARound + i) + "/a").parent());
        for (const auto &item : items)
            memory.file(item.path().mid(memory.home().size() + 1) + "/b/c");

        QProcess process;
        memory.start(process, TrashSandbox::session(), {""});
        process.write(TrashSandbox::lines(items));
        // Somewhere within the move of the next item, a different one in every round.
        for (int answers = round % itemsARound; answers > 0 && process.waitForReadyRead();) {
            answers -= static_cast<int>(process.readAll().count('\n'));
        }
        process.kill();
        process.waitForFinished();

        int moved = 0;
        for (const auto &item : items) {
            const fs::path place(item.path().toStdString());
            const auto trashed = memory.trash().toStdString() + "/files/" + place.filename().string();
            const auto isWhole = [](const fs::path &path) {
                return fs::exists(path / "a") && fs::exists(path / "b/c");
            };
            const bool isMoved = fs::exists(trashed);
            EXPECT_NE(fs::exists(place), isMoved) << item.path().data();
            EXPECT_TRUE(isWhole(isMoved ? fs::path(trashed) : place)) << item.path().data();
            moved += isMoved;
        }
        roundsCutShort += moved > 0 && moved < itemsARound;
    }
    EXPECT_GT(roundsCutShort, rounds / 2) << "too few were killed at work to show anything";
}
