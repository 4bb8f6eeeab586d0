#include "TestBus.h"
#include "TrashSandbox.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTest>

#include <filesystem>
#include <gtest/gtest.h>
#include <system_error>

namespace {

/// A file manager that remembers what it was told to show.
class FakeFileManager : public QDBusVirtualObject
{
public:
    QStringList shown;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() != "ShowItems" || message.signature() != "ass")
            return false;
        shown += message.arguments().first().toStringList();
        return connection.send(message.createReply());
    }
};

class RevealTest : public testing::Test
{
protected:
    TrashSandbox sandbox;
    TestBus bus;
    QProcess session;
    Url item = sandbox.file("items/\xff %.mp4");

    RevealTest() { sandbox.environment.insert("DBUS_SESSION_BUS_ADDRESS", bus.address()); }
    ~RevealTest() override
    {
        session.kill();
        session.waitForFinished();
    }

    /// Has the item revealed; shows that the program goes on at once.
    void reveal()
    {
        sandbox.start(session, sandbox.session(), {"", "reveal"});
        session.write(TrashSandbox::lines({item}));
        session.closeWriteChannel();
        ASSERT_TRUE(QTest::qWaitFor([&] { return session.canReadLine(); }, 15'000));
        EXPECT_EQ(session.readLine(), "asked\n");
    }
};

} // namespace

TEST_F(RevealTest, fileManagerSelectsTheItemEvenWhenTheBusIsSlow)
{
    FakeFileManager fileManager;
    auto connection = QDBusConnection::connectToBus(bus.address(), "file-manager");
    ASSERT_TRUE(connection.registerVirtualObject("/org/freedesktop/FileManager1", &fileManager));
    ASSERT_TRUE(connection.registerService("org.freedesktop.FileManager1"));

    bus.freeze();
    reveal();
    EXPECT_TRUE(fileManager.shown.isEmpty());
    bus.thaw();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fileManager.shown.isEmpty(); }, 20'000));
    EXPECT_EQ(fileManager.shown, QStringList(QString::fromLatin1(item.toUri())));
    QDBusConnection::disconnectFromBus("file-manager");
}

TEST_F(RevealTest, folderIsOpenedWhereNoFileManagerSelects)
{
    const auto opened = sandbox.url("opened").path();
    sandbox.file(".config/mimeapps.list", "[Default Applications]\ninode/directory=show.desktop\n");
    sandbox.file(".local/share/applications/show.desktop",
                 "[Desktop Entry]\nType=Application\nName=Show\nMimeType=inode/directory;\nExec=ln -sfT %u "
                     + opened + "\n");
    reveal();
    std::error_code none;
    const auto target = [&] { return std::filesystem::read_symlink(opened.toStdString(), none).string(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return !target().empty(); }, 20'000));
    EXPECT_NE(target().find(item.parent().path().toStdString()), std::string::npos) << target();
}

TEST_F(RevealTest, nothingBreaksWhereNeitherCanBeHad)
{
    reveal();
    EXPECT_FALSE(session.waitForFinished(500));
    bus.kill();
    EXPECT_FALSE(session.waitForFinished(500)) << "nor when the bus goes away";
}
