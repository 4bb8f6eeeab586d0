#include "LinuxWorkspace.h"
#include "TemporaryDisk.h"
#include "TestBus.h"
#include "TestPortal.h"

#include <QDBusMessage>
#include <QElapsedTimer>
#include <QTest>

#include <filesystem>
#include <gtest/gtest.h>
#include <system_error>

/// A file manager that remembers what it was told to show.
class FakeFileManager : public TestPortal
{
public:
    using TestPortal::TestPortal;
    QStringList shown;

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() != "ShowItems" || message.signature() != "ass")
            return false;
        shown += message.arguments().first().toStringList();
        return connection.send(message.createReply());
    }
};

struct RevealTest : testing::Test
{
    TestBus bus;
    const Url item{home().root().prefix() + "/items/\xff %.mp4"};

    RevealTest()
    {
        qputenv("HOME", home().root().prefix());
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    }

    /// One for all: where it is, a program asks once.
    static const TemporaryDisk &home()
    {
        static const TemporaryDisk disk;
        return disk;
    }

    /// Has the item revealed; shows that the program goes on at once.
    void reveal() const
    {
        QElapsedTimer clock;
        clock.start();
        LinuxWorkspace(DiskRoot()).reveal(item);
        EXPECT_LT(clock.elapsed(), 1'000);
    }
};

TEST_F(RevealTest, fileManagerSelectsTheItemEvenWhenTheBusIsSlow)
{
    FakeFileManager fileManager(bus.address(), "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1");
    bus.freeze();
    reveal();
    EXPECT_TRUE(fileManager.shown.isEmpty());
    bus.thaw();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fileManager.shown.isEmpty(); }, 20'000));
    EXPECT_EQ(fileManager.shown, QStringList(QString::fromLatin1(item.toUri())));
}

TEST_F(RevealTest, folderIsOpenedWhereNoFileManagerSelectsAndNothingBreaksWithoutABus)
{
    const auto opened = home().host("/opened");
    home().folder("/items");
    home().file("/.config/mimeapps.list", "[Default Applications]\ninode/directory=show.desktop\n");
    home().file("/.local/share/applications/show.desktop",
                "[Desktop Entry]\nType=Application\nName=Show\nMimeType=inode/directory;\nExec=ln -sfT %u "
                    + QByteArray::fromStdString(opened) + "\n");
    std::error_code none;
    const auto target = [&] { return std::filesystem::read_symlink(opened, none).string(); };
    for (const bool hasBus : {true, false}) {
        if (!hasBus)
            bus.kill();
        std::filesystem::remove(opened);
        reveal();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !target().empty(); }, 20'000));
        EXPECT_NE(target().find(item.parent().path().toStdString()), std::string::npos) << target();
    }
}
