// The program on the disk of another Mac: what it does with volumes that are really mounted, and copies.

#include "AppViewModel.h"
#include "DiskText.h"
#include "FakeFolderChooser.h"
#include "LinuxPlatform.h"
#include "MacDisk.h"
#include "RemovalWorkflow.h"
#include "ScanWorkflows.h"
#include "SecondVolume.h"
#include "TemporaryDisk.h"
#include "TestDisk.h"

#include <QCoro/QCoroTask>
#include <QDir>
#include <QProcess>

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <unistd.h>

namespace fs = std::filesystem;

using QCoro::waitFor;
using testing::ElementsAre;
using testing::EndsWith;
using testing::UnorderedElementsAre;

struct DiskProgramTest : testing::Test
{
    DiskProgramTest() { qputenv("XDG_DATA_HOME", (folder() + "/data").c_str()); }

    std::string folder() const { return m_disk.host("/"); }
    std::string mac() const { return folder() + "/mac"; }

    void file(const QByteArray &path, qsizetype size = 10) const
    {
        m_disk.file("/mac" + path, QByteArray(size, 'x'));
    }

    void install(const QByteArray &bundle, const QByteArray &identifier) const
    {
        file(bundle + "/Contents/MacOS/main");
        m_disk.file("/mac" + bundle + "/Contents/Info.plist",
                    "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier
                        + "</string></dict></plist>");
    }

    /// Opens the program's state on the disk.
    AppViewModel &open(const MacDisk &disk = {"Macintosh HD", "anna"}, const Url &place = Url("/"))
    {
        m_mac = disk;
        m_platform = std::make_unique<LinuxPlatform>(DiskRoot(QByteArray::fromStdString(mac()), place),
                                                     Url("/Users/anna"), m_noFolder, std::stop_token(), &m_mac);
        m_app = std::make_unique<AppViewModel>(m_platform->services());
        m_app->setLanguage(AppLanguage::english);
        return *m_app;
    }

    /// Lets go of the disk, which can be unmounted then.
    void close()
    {
        m_app.reset();
        m_platform.reset();
    }

    bool isReadOnly() const
    {
        const LinuxFileSystem disk(DiskRoot(QByteArray::fromStdString(mac())), Url("/Users/anna"), {});
        return disk.volumeValues(disk.homeDirectory())->isReadOnly;
    }

    /// Looks for the application and removes what starts ticked.
    static void uninstall(AppViewModel &app, const QString &name)
    {
        app.setApplicationQuery(name);
        waitFor(app.scans().scanApplicationByName());
        app.requestDeletion(ScanScope::uninstaller);
        ASSERT_TRUE(app.pendingDeletion());
        waitFor(app.removal().confirmDeletion(*app.pendingDeletion()));
    }

    static QStringList namesIn(const fs::path &place)
    {
        return QDir(place).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    // In no memory, which has no Trash.
    const TemporaryDisk m_disk{"/var/tmp"};

private:
    FakeFolderChooser m_noFolder;
    MacDisk m_mac;
    std::unique_ptr<LinuxPlatform> m_platform;
    std::unique_ptr<AppViewModel> m_app;
};

TEST_F(DiskProgramTest, whatIsRemovedFromAMountedDiskIsInTheTrashOfThatDiskUnlessItCanOnlyBeRead)
{
    const SecondVolume volume(QByteArray::fromStdString(mac()));
    NEED_VOLUME(volume);
    install("/Applications/Notes.app", "com.acme.notes");
    file("/Users/anna/Library/Caches/com.Acme.Notes/data", 2'000'000);
    file("/Users/anna/Library/Preferences/COM.acme.notes.plist");
    file("/Users/anna/Library/Caches/org.gone.app/data");
    // A link that would lead out, and whose target on this computer is to be kept.
    m_disk.folder("/precious/com.acme.notes");
    m_disk.link("/mac/Users/anna/Library/Logs", m_disk.root().prefix() + "/precious");
    {
        volume.remount("ro");
        auto &app = open({"Macintosh HD", "anna", false, isReadOnly()});
        ASSERT_TRUE(app.userNotice()) << "before anything is ticked";
        EXPECT_EQ(app.userNotice()->title, diskText(DiskText::readOnlyTitle, AppLanguage::polish));
        app.dismissNotice();
        uninstall(app, "notes");
        EXPECT_THAT(app.userNotice()->message.toStdString(),
                    EndsWith("because the disk that it is on can only be read."));
        EXPECT_EQ(app.associatedItems().size(), 3);
        close();
    }
    volume.remount("rw");
    EXPECT_FALSE(isReadOnly());
    auto &app = open();
    EXPECT_EQ(app.diskTitle(), "Macintosh HD, anna");
    app.refreshDashboard();
    EXPECT_EQ(app.dashboardSnapshot()->storage.volumeName, "Macintosh HD");
    EXPECT_LT(app.dashboardSnapshot()->storage.totalBytes, 20'000'000) << "the volume's own size";

    uninstall(app, "notes");
    EXPECT_FALSE(app.userNotice());
    EXPECT_THAT(namesIn(mac() + "/.Trash-" + std::to_string(getuid()) + "/files"),
                UnorderedElementsAre("Notes.app", "com.Acme.Notes", "COM.acme.notes.plist"))
        << "by their names on the disk";
    EXPECT_TRUE(fs::exists(folder() + "/precious/com.acme.notes"));
    waitFor(app.scans().scanLeftovers());
    EXPECT_THAT(pathsOf(app.leftoverItems()), ElementsAre("/Users/anna/Library/Caches/org.gone.app"));
    close();
}

TEST_F(DiskProgramTest, aCopyOfAHomeOffersItsOwnApplicationsAndNoLeftoversAndUsesTheTrashOfThisComputer)
{
    install("/Applications/Notes.app", "com.acme.notes");
    file("/Library/Caches/com.acme.notes/data");
    file("/Library/Caches/org.gone.app/data");
    auto &app = open({"anna", "anna", true}, Url("/Users/anna"));
    EXPECT_EQ(app.diskTitle(), "anna");
    waitFor(app.scans().scanLeftovers());
    EXPECT_TRUE(app.leftoverItems().isEmpty());
    EXPECT_EQ(app.statusMessage(), diskText(DiskText::nothingKnownOfApplications, AppLanguage::english));
    uninstall(app, "notes");
    EXPECT_FALSE(app.userNotice());
    EXPECT_THAT(namesIn(folder() + "/data/Trash/files"), UnorderedElementsAre("Notes.app", "com.acme.notes"));
    std::ifstream record(folder() + "/data/Trash/info/Notes.app.trashinfo");
    EXPECT_THAT(std::string(std::istreambuf_iterator(record), {}),
                testing::HasSubstr("\nPath=" + mac() + "/Applications/Notes.app\n"))
        << "on this computer";
    EXPECT_TRUE(fs::exists(mac() + "/Library/Caches/org.gone.app"));
}

TEST_F(DiskProgramTest, homesAreNamedWhereThereIsNoDisplayToAskOn)
{
    for (const auto *home : {"/Users/bob", "/Users/anna", "/Users/Shared"})
        file(home + QByteArray("/Library/x"));
    fs::create_directory(mac() + "/Applications");
    auto surroundings = QProcessEnvironment::systemEnvironment();
    for (const auto *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        surroundings.remove(QString::fromLatin1(name));
    QProcess program;
    program.setProcessEnvironment(surroundings);
    program.start(DISK_PROGRAM_PATH, {QString::fromStdString(mac())});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(program.readAllStandardError().toStdString(), EndsWith(":\n  anna\n  bob\n"));
}
