// Folders chosen from the program's own window: in the dialog of a desktop's portal on a real bus and, where there is
// none, in the one that Qt brings.

#include "AppViewModel.h"
#include "ChosenAppearance.h"
#include "FolderDialogChooser.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "Robot.h"
#include "SampleDisk.h"
#include "Surroundings.h"
#include "TarnvaleApp.h"
#include "TestBus.h"
#include "TestPortal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>

#include <cstdio>
#include <gmock/gmock.h>
#include <optional>
#include <stop_token>

constexpr int patience = 20'000;

static const SampleDisk *disk = nullptr;

/// A desktop's portal with a file chooser that the test answers for the user.
class FileChooserPortal : public TestPortal
{
public:
    using TestPortal::TestPortal;

    uint version = 3;
    bool opensDialogs = true;
    QList<QVariantList> asked;

    /// Ends the last dialog as the user would. 0 is a choice, 1 a cancel.
    void respond(uint response, const QStringList &uris = {})
    {
        auto signal =
            QDBusMessage::createTargetedSignal(m_client, request, "org.freedesktop.portal.Request", "Response");
        signal.setArguments({response, response == 0 ? QVariantMap{{"uris", uris}} : QVariantMap()});
        EXPECT_TRUE(m_bus.send(signal));
    }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.member() == QLatin1String("Get"))
            return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(version))));
        if (message.member() != QLatin1String("OpenFile") || message.signature() != QLatin1String("ssa{sv}"))
            return false;
        asked.append(message.arguments());
        m_client = message.service();
        return bus.send(opensDialogs ? message.createReply(QVariant::fromValue(QDBusObjectPath(request)))
                                     : message.createErrorReply(QDBusError::Failed, "no display"));
    }

private:
    const QString request = "/org/freedesktop/portal/desktop/request/1_1/token";
    QString m_client;
};

struct FolderChoice : testing::Test
{
    void SetUp() override
    {
        state().setSidebarSelection(SidebarSelection::mediaFinder);
        ASSERT_TRUE(Robot::waitUntil([this] { return window.isExposed(); }, patience));
    }

    void TearDown() override
    {
        m_stop.request_stop();
        state().waitForBackground();
    }

    AppViewModel &state() { return m_app.viewModel(); }
    QString text(QStringView key) { return localizedText(key, state().language()); }

    void pressChoose() { EXPECT_TRUE(robot.click(QAccessible::Button, text(u"media_choose_folder"))); }

    /// Presses the button and waits for the desktop's dialog.
    void openDialog(FileChooserPortal &portal)
    {
        const auto before = portal.asked.size();
        pressChoose();
        ASSERT_TRUE(Robot::waitUntil([&] { return portal.asked.size() > before; }, patience));
    }

    /// What the state holds once the window has had time to take an answer.
    std::optional<Url> folderAfter(FileChooserPortal &portal, uint response, const QStringList &uris = {})
    {
        openDialog(portal);
        const auto before = state().selectedMediaFolder();
        portal.respond(response, uris);
        Robot::waitUntil([&] { return state().selectedMediaFolder() != before; }, 300);
        return state().selectedMediaFolder();
    }

    static QString uriOnDisk(const QByteArray &path)
    {
        return QString::fromLatin1(Url(disk->folder().toUtf8() + path).toUri());
    }

    /// What has the keyboard in Qt's own dialog; null when that is not open. Qt 6.4 shows it in the program's window,
    /// Qt 6.8 in one of its own.
    static const QQuickItem *dialogItem()
    {
        const auto *window = qobject_cast<QQuickWindow *>(QGuiApplication::focusWindow());
        const auto *item = window ? window->activeFocusItem() : nullptr;
        return item && item->objectName().startsWith("folderDialog") ? item : nullptr;
    }

    bool isWithTheButton()
    {
        const auto *item = window.activeFocusItem();
        return item && item->property("text") == text(u"media_choose_folder");
    }

    static void press(Qt::Key key) { QTest::keyClick(QGuiApplication::focusWindow(), key); }

    TestBus bus;

private:
    std::stop_source m_stop;
    const DiskRoot m_root{QFile::encodeName(disk->folder())};
    FolderDialogChooser m_dialog{QFile::encodeName(disk->homePath())};
    LinuxFolderChooser m_chooser{m_dialog, QFile::encodeName(disk->homePath()), [] { return QString("x11:2a"); },
                                 bus.address().toUtf8()};
    LinuxPlatform m_platform{m_root, disk->home(), m_chooser, m_stop.get_token()};
    ChosenAppearance m_appearance;
    TarnvaleApp m_app{m_platform.services(), m_appearance};

protected:
    Robot robot{m_app.window()};
    QQuickWindow &window = m_app.window();
};

TEST_F(FolderChoice, theDesktopsDialogIsAskedForOneFolderOfTheDisk)
{
    FileChooserPortal portal(bus.address());
    // A space, and a name that is not UTF-8.
    const Url folder("/Users/ada/Mo je\xff");
    EXPECT_EQ(folderAfter(portal, 0, {uriOnDisk(folder.path())}), folder);
    EXPECT_EQ(portal.asked.last().first(2), (QVariantList{"x11:2a", "Wybierz folder lub dysk"}));
    EXPECT_EQ(qdbus_cast<QVariantMap>(portal.asked.last().at(2)),
              (QVariantMap{{"accept_label", "Wybierz"},
                           {"current_folder", disk->homePath().toUtf8() + '\0'},
                           {"directory", true},
                           {"modal", true},
                           {"multiple", false}}));

    EXPECT_EQ(folderAfter(portal, 1), folder) << "cancelled";
    EXPECT_EQ(folderAfter(portal, 2), folder) << "ended in another way";
    EXPECT_EQ(folderAfter(portal, 0), folder) << "nothing is chosen";
    EXPECT_EQ(folderAfter(portal, 0, {"smb://server/films"}), folder);
    EXPECT_EQ(folderAfter(portal, 0, {"file:///elsewhere"}), folder);
}

TEST_F(FolderChoice, aSecondPressOpensNoSecondDialog)
{
    FileChooserPortal portal(bus.address());
    openDialog(portal);
    pressChoose();
    state().setSidebarSelection(SidebarSelection::textFinder);
    EXPECT_TRUE(robot.click(QAccessible::Button, text(u"text_choose_folder")));
    EXPECT_FALSE(Robot::waitUntil([&] { return portal.asked.size() > 1 || dialogItem(); }, 300));
    portal.respond(0, {uriOnDisk("/Users/ada")});
    EXPECT_TRUE(Robot::waitUntil([&] { return state().selectedMediaFolder().has_value(); }, patience));
    EXPECT_FALSE(state().selectedTextFolder());
}

TEST_F(FolderChoice, aPortalThatGoesAwayTakesItsDialogAlong)
{
    std::optional<FileChooserPortal> portal(std::in_place, bus.address());
    openDialog(*portal);
    portal.reset();
    // The dialog of the next portal opens only when the one before counts as ended.
    portal.emplace(bus.address());
    Robot::waitUntil([] { return false; }, 300);
    EXPECT_EQ(folderAfter(*portal, 0, {uriOnDisk("/Users/ada")}), Url("/Users/ada"));
}

TEST_F(FolderChoice, withoutAPortalForFoldersQtsOwnDialogIsWorkedByKeyboard)
{
    FileChooserPortal portal(bus.address());
    const std::function<void()> troubles[] = {[&] { portal.version = 2; },
                                              [&] {
                                                  portal.version = 3;
                                                  portal.opensDialogs = false;
                                              },
                                              [&] { bus.kill(); }};
    for (const auto &trouble : troubles) {
        trouble();
        pressChoose();
        ASSERT_TRUE(Robot::waitUntil([] { return dialogItem(); }, patience));
        press(Qt::Key_Escape);
        ASSERT_TRUE(Robot::waitUntil([] { return !dialogItem(); }, patience));
        EXPECT_FALSE(state().selectedMediaFolder());
        EXPECT_TRUE(Robot::waitUntil([this] { return isWithTheButton(); }, patience)) << "the keyboard comes back";
    }
    pressChoose();
    const auto isOnFirstFolder = [] { return dialogItem() && dialogItem()->objectName().endsWith("0"); };
    ASSERT_TRUE(Robot::waitUntil(isOnFirstFolder, patience));
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_TRUE(Robot::waitUntil([&] { return state().selectedMediaFolder().has_value(); }, patience));
    EXPECT_EQ(state().selectedMediaFolder(), Url("/Users/ada/Documents"));
}

int main(int argc, char **argv)
{
    setSurroundings();
    // Not where temporary files go, which may be memory: the disk's files occupy what they say.
    const QTemporaryDir folder(QDir::current().filePath(QStringLiteral("folder-choice-XXXXXX")));
    const SampleDisk sampleDisk(folder.filePath(QStringLiteral("dysk")));
    disk = &sampleDisk;
    QGuiApplication application(argc, argv);
    if (const auto error = sampleDisk.build(); !error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
