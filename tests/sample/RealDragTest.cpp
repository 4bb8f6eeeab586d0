// Drops on the program's window that come from another program through the window system: a display without a
// screen, a pointer that is really moved, and the drag-and-drop protocol between the two.

#include "AppViewModel.h"
#include "ChosenAppearance.h"
#include "ChosenFolder.h"
#include "DiskRoot.h"
#include "DropReceiver.h"
#include "LinuxPlatform.h"
#include "Robot.h"
#include "SampleDisk.h"
#include "TarnvaleApp.h"

#include <QDir>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gmock/gmock.h>
#include <optional>
#include <stop_token>
#include <sys/prctl.h>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int patience = 20'000;

/// Where what is dragged lies: to the right of the program's window.
constexpr QPoint sourceCorner(1040, 100);

/// A display of its own, gone with the test, however that ends.
class TestDisplay
{
public:
    TestDisplay()
    {
        m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
        m_server.start("Xvfb", QString("-displayfd 1 -screen 0 1280x800x24 -nolisten tcp").split(u' '));
        while (!m_server.canReadLine() && m_server.waitForReadyRead(patience)) { }
        m_name = ':' + m_server.readLine().trimmed();
    }
    ~TestDisplay()
    {
        m_server.terminate();
        if (!m_server.waitForFinished(5'000))
            m_server.kill();
        m_server.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(TestDisplay)

    /// As in the variable DISPLAY; ":" when there is none.
    const QByteArray &name() const { return m_name; }

private:
    QProcess m_server;
    QByteArray m_name;
};

/// One for all tests: the desktop's libraries look for the home, which is on it, only once.
const SampleDisk *disk = nullptr;

DropReceiver *dropZoneIn(QQuickItem *item)
{
    if (auto *zone = qobject_cast<DropReceiver *>(item); zone && zone->isVisible())
        return zone;
    const auto children = item->childItems();
    for (auto *child : children) {
        if (auto *zone = dropZoneIn(child))
            return zone;
    }
    return nullptr;
}

/// Counts what the window hears of drags.
class DragListener : public QObject
{
public:
    int heard = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove)
            ++heard;
        return false;
    }
};

class RealDrag : public testing::Test
{
protected:
    void SetUp() override
    {
        state().setSidebarSelection(SidebarSelection::uninstaller);
        m_app.window().setPosition(0, 0);
        m_app.window().installEventFilter(&m_listener);
        ASSERT_TRUE(Robot::waitUntil(
            [&] { return m_app.window().isExposed() && (m_zone = dropZoneIn(m_app.window().contentItem())); },
            patience));
        // Laid out and where it was moved to.
        ASSERT_TRUE(Robot::waitUntil(
            [&] { return m_zone->height() > 0 && m_app.window().position() == QPoint(0, 0); }, patience));
        ASSERT_LT(m_app.window().geometry().right(), sourceCorner.x());
    }

    void TearDown() override
    {
        xdotool("mouseup 1");
        m_source.terminate();
        EXPECT_TRUE(Robot::waitUntil([&] { return m_source.state() == QProcess::NotRunning; }, patience));
        m_stop.request_stop();
        state().waitForBackground();
    }

    AppViewModel &state() { return m_app.viewModel(); }

    static QByteArray uriOnDisk(const QString &path) { return Url((disk->folder() + path).toUtf8()).toUri(); }

    /// Drags the content with the pointer from the other program to the drop zone and lets go there, when the
    /// zone shows that it would take it or, without `isTargeted`, that it would not. Returns what the other program told.
    std::string drag(const QString &type, const QByteArray &content, bool isTargeted)
    {
        m_source.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_source.start(DRAG_SOURCE, {type, QString::fromUtf8(content), QString::number(sourceCorner.x()),
                                     QString::number(sourceCorner.y())});
        QByteArray told;
        const auto tells = [&](const char *line) {
            return Robot::waitUntil(
                [&] {
                    told += m_source.readAllStandardOutput();
                    return told.contains(line);
                },
                patience);
        };
        EXPECT_TRUE(tells("ready"));
        movePointer(sourceCorner + QPoint(100, 100));
        xdotool("mousedown 1");
        movePointer(sourceCorner + QPoint(80, 110));
        movePointer(sourceCorner + QPoint(60, 120));

        const auto place = m_zone->mapToGlobal(m_zone->boundingRect().center()).toPoint();
        movePointer(place + QPoint(60, 0));
        EXPECT_TRUE(Robot::waitUntil([&] { return m_listener.heard > 0; }, patience)) << "the window hears of it";
        const auto heardBefore = m_listener.heard;
        movePointer(place);
        EXPECT_TRUE(Robot::waitUntil([&] { return m_listener.heard > heardBefore; }, patience));
        EXPECT_TRUE(Robot::waitUntil([&] { return m_zone->isTargeted() == isTargeted; }, patience));
        // The other program is told that the drop is taken, as a copy, or hears of no action at all.
        EXPECT_TRUE(!isTargeted || tells("over 1"));
        xdotool("mouseup 1");
        EXPECT_TRUE(tells("dropped"));
        return told.toStdString();
    }

private:
    static void movePointer(QPoint place) { xdotool(QString("mousemove %1 %2").arg(place.x()).arg(place.y())); }

    static void xdotool(const QString &command)
    {
        QProcess process;
        process.start("xdotool", command.split(u' '));
        EXPECT_TRUE(Robot::waitUntil([&] { return process.state() == QProcess::NotRunning; }, patience));
        EXPECT_EQ(process.exitCode(), 0) << qPrintable(command);
    }

    std::stop_source m_stop;
    ChosenFolder m_chosenFolder;
    ChosenAppearance m_appearance;
    DiskRoot m_root{QFile::encodeName(disk->folder())};
    LinuxPlatform m_platform{m_root, disk->home(), m_chosenFolder, m_stop.get_token()};
    QProcess m_source;
    DragListener m_listener;
    TarnvaleApp m_app{m_platform.services(), m_appearance,
                      [this](const Url &host) { return m_root.urlFor(host.path()); }};
    DropReceiver *m_zone = nullptr;
};

TEST_F(RealDrag, theFirstOfTwoDroppedBundlesIsScannedAndNoneIsMovedAway)
{
    const auto told =
        drag("text/uri-list",
             uriOnDisk("/Applications/Lumen.app") + "\r\n" + uriOnDisk("/Applications/Fjord.app") + "\r\n", true);
    EXPECT_THAT(told, HasSubstr("dropped 1"));
    ASSERT_TRUE(Robot::waitUntil([&] { return !state().associatedItems().isEmpty(); }, patience));
    ASSERT_TRUE(state().selectedApplication());
    EXPECT_EQ(state().selectedApplication()->bundleIdentifier, "org.lumen.editor");
    EXPECT_EQ(state().applicationQuery(), "Lumen");
    EXPECT_GT(state().associatedItems().size(), 5);
}

TEST_F(RealDrag, aDroppedDocumentIsRefusedInWords)
{
    drag("text/uri-list", uriOnDisk("/Users/ada/Documents/notatki.txt") + "\r\n", true);
    const auto refusal = localizedText(u"drop_invalid_app", state().language());
    EXPECT_TRUE(Robot::waitUntil([&] { return state().statusMessage() == refusal; }, patience));
    EXPECT_FALSE(state().selectedApplication());
}

TEST_F(RealDrag, draggedTextThatIsNoLocationIsNotTaken)
{
    const auto before = state().statusMessage();
    const auto told = drag("text/plain", "Lumen", false);
    EXPECT_THAT(told, HasSubstr("dropped 0"));
    EXPECT_THAT(told, Not(HasSubstr("over 1")));
    EXPECT_EQ(state().statusMessage(), before);
    EXPECT_FALSE(state().selectedApplication());
}

} // namespace

int main(int argc, char **argv)
{
    const TestDisplay display;
    if (display.name() == ":") {
        std::fprintf(stderr, "Xvfb did not start.\n");
        return 1;
    }
    // Not where temporary files go, which may be memory: the disk's files occupy what they say.
    const QTemporaryDir folder(QDir::current().filePath("real-drag-XXXXXX"));
    // A space and a letter outside of ASCII: what is dragged has to be encoded.
    const SampleDisk sampleDisk(folder.filePath("dysk próbny"));
    disk = &sampleDisk;
    qputenv("DISPLAY", display.name());
    qputenv("HOME", QFile::encodeName(sampleDisk.homePath()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(sampleDisk.dataHomePath()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication application(argc, argv);
    if (const auto error = sampleDisk.build(); !error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
