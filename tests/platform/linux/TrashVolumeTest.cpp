#include "SecondVolume.h"
#include "TrashSandbox.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::EndsWith;

namespace fs = std::filesystem;

/// A home folder without a usable Trash: what lies on another volume needs none there.
struct TrashVolumeTest : testing::Test
{
    TrashVolumeTest() { sandbox.file(".local", "no folder"); }

    TrashSandbox sandbox;
    QByteArray top = sandbox.home() + "/volume";
    QByteArray user = QByteArray::number(getuid());

    /// Moves one item more and answers where it is below the volume's topmost folder; empty when it was not moved.
    std::string move()
    {
        const auto item = sandbox.file("volume/folder/" + QByteArray::number(++m_items));
        const auto answer = sandbox.recycle({item}).at(0);
        const auto place = Url::fromUri(answer.substr(answer.find(' ') + 1)).value_or(Url()).path();
        EXPECT_NE(fs::exists(item.path().toStdString()), fs::exists(place.toStdString())) << answer;
        return place.mid(top.size()).toStdString();
    }

private:
    int m_items = 0;
};

TEST_F(TrashVolumeTest, itemsStayOnTheirVolumeAndComeBack)
{
    const SecondVolume volume(top);
    NEED_VOLUME(volume);
    const auto item = sandbox.file("volume/a/b/x y.app/Contents/main").parent().parent();
    const auto atTop = sandbox.file("volume/100%");
    fs::create_symlink("volume/a", (sandbox.home() + "/link").toStdString());
    const auto before = sandbox.snapshot("volume/a");

    EXPECT_THAT(sandbox.recycle({sandbox.url("link/b/x y.app"), atTop}),
                ElementsAre("moved " + Url(top + "/.Trash-" + user + "/files/x y.app").toUri().toStdString(),
                            "moved " + Url(top + "/.Trash-" + user + "/files/100%").toUri().toStdString()));
    std::ifstream record((top + "/.Trash-" + user + "/info/x y.app.trashinfo").toStdString());
    EXPECT_THAT(std::string(std::istreambuf_iterator(record), {}), testing::HasSubstr("\nPath=a/b/x%20y.app\n"))
        << "wherever the volume will be mounted next time";
    for (int i = 0; i < 2; ++i)
        sandbox.run("trash-restore", {QString::fromUtf8(top)}, "0\n");
    EXPECT_EQ(sandbox.snapshot("volume/a"), before);
    EXPECT_TRUE(fs::exists(atTop.path().toStdString()));
}

TEST_F(TrashVolumeTest, onlyASafeFolderIsTakenForATrash)
{
    const SecondVolume volume(top);
    NEED_VOLUME(volume);
    const auto shared = top.toStdString() + "/.Trash";
    const auto own = top.toStdString() + "/.Trash-" + user.toStdString();
    const auto inOwn = "/.Trash-" + user.toStdString() + "/files/";
    fs::create_directory(shared);
    EXPECT_EQ(move(), inOwn + "1") << "others could delete what they like in it";
    chmod(shared.c_str(), 01777);
    EXPECT_EQ(move(), "/.Trash/" + user.toStdString() + "/files/2");
    if (getuid() == 0) {
        ASSERT_EQ(chown((shared + '/' + user.toStdString()).c_str(), 65534, 65534), 0);
        EXPECT_EQ(move(), inOwn + "3") << "somebody else's";
    }
    fs::rename(shared, top.toStdString() + "/elsewhere");
    fs::create_directory_symlink("elsewhere", shared);
    EXPECT_EQ(move(), inOwn + "4");
    fs::rename(own, own + "-before");
    fs::create_directory_symlink("elsewhere", own);
    EXPECT_EQ(move(), "");
    EXPECT_THAT(sandbox.recycle({sandbox.file("volume/x")}), ElementsAre(EndsWith("has no Trash.")));
}

TEST_F(TrashVolumeTest, whatIsReallyInTheWayIsSaid)
{
    const SecondVolume volume(top);
    NEED_VOLUME(volume);
    const auto item = sandbox.file("volume/x");
    // Where the Trash has to be made, and where it is there already.
    volume.fill();
    EXPECT_THAT(sandbox.recycle({item}),
                ElementsAre(EndsWith("because the disk is full. Free some space and try again.")));
    fs::remove(top.toStdString() + "/everything");
    move();
    volume.fill();
    EXPECT_THAT(sandbox.recycle({item}),
                ElementsAre(EndsWith("because the disk is full. Free some space and try again.")));
    EXPECT_EQ(std::distance(fs::directory_iterator((top + "/.Trash-" + user + "/info").toStdString()), {}), 1);
    // Of the administrator it is not to be said that it is another user's.
    fs::remove(top.toStdString() + "/everything");
    ASSERT_EQ(chown(item.path().constData(), OrdinaryUser::number, OrdinaryUser::number), 0);
    sandbox.run("chattr", {"+i", QString::fromUtf8(item.path())});
    EXPECT_THAT(sandbox.recycle({item}),
                ElementsAre(EndsWith("to the Trash because you don't have permission to do that.")));
    sandbox.run("chattr", {"-i", QString::fromUtf8(item.path())});
    volume.remount("ro");
    EXPECT_THAT(sandbox.recycle({item}),
                ElementsAre(EndsWith("because the disk that it is on can only be read.")));
    EXPECT_TRUE(fs::exists(item.path().toStdString()));
}

TEST_F(TrashVolumeTest, whetherDesktopsShowATrashOfAVolumeCanBeSaidWhereItIsMounted)
{
    for (const auto &[options, isShown] :
         {std::pair("x-gvfs-notrash", false), {"x-gvfs-notrash,x-gvfs-trash", true}}) {
        const SecondVolume volume(top, options);
        NEED_VOLUME(volume);
        EXPECT_EQ(move().empty(), !isShown) << options;
    }
}
