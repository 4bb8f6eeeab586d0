// An uninstall in the window of a user to whom a part of the disk does not belong: what the user may not move goes over
// the system bus to a helper that runs as root. Root alone can arrange this.

#include "AppViewModel.h"
#include "ChosenAppearance.h"
#include "ChosenFolder.h"
#include "DiskBundleReader.h"
#include "HelperService.h"
#include "LinuxPlatform.h"
#include "PrivilegedHelperClient.h"
#include "Robot.h"
#include "SampleDisk.h"
#include "Surroundings.h"
#include "TarnvaleApp.h"
#include "TestBus.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <grp.h>
#include <stop_token>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using testing::AllOf;
using testing::Contains;
using testing::Not;

namespace fs = std::filesystem;

constexpr uid_t secondUser = 65534;

/// Of what belongs to the application, these folders' content is root's.
constexpr const char *foreignFolders[] = {"Library/Cookies", "Library/Group Containers", "Library/Logs"};

static const SampleDisk *disk = nullptr;

static QString text(QStringView key)
{
    return localizedText(key, AppLanguage::polish);
}

static fs::path onDisk(const char *path)
{
    return disk->folder().toStdString() + path;
}

/// The names in a folder of the disk.
static QStringList namesIn(const fs::path &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// The program in its window, on the sample disk; it sits where a helper can be registered from.
struct ForeignItems : testing::Test
{
    ~ForeignItems() override
    {
        m_stop.request_stop();
        state.waitForBackground();
    }

    void click(QAccessible::Role role, const QString &name)
    {
        ASSERT_TRUE(robot.click(role, name)) << qPrintable(name);
    }

    void waitUntilIdle()
    {
        EXPECT_TRUE(Robot::waitUntil([&] { return !state.isProcessing(); }));
    }

private:
    std::stop_source m_stop;
    ChosenFolder m_folder;
    ChosenAppearance m_appearance;
    LinuxPlatform m_linux{DiskRoot(disk->folder().toUtf8()), disk->home(), m_folder, m_stop.get_token()};
    const Platform &m_own = m_linux.services();
    DiskBundleReader m_bundles{m_own.fileSystem, {"pl"}, Url("/Applications/Tarnvale.app")};
    TarnvaleApp m_app{{
                          .fileSystem = m_own.fileSystem,
                          .bundleReader = m_bundles,
                          .codeSignature = m_own.codeSignature,
                          .applicationRegistry = m_own.applicationRegistry,
                          .systemFacts = m_own.systemFacts,
                          .backgroundPriority = m_own.backgroundPriority,
                          .workspace = m_own.workspace,
                          .helperService = m_own.helperService,
                          .folderChooser = m_own.folderChooser,
                      },
                      m_appearance};

protected:
    AppViewModel &state = m_app.viewModel();
    Robot robot{m_app.window()};
};

TEST_F(ForeignItems, goToTheHelperWithTheApplicationsIdentifier)
{
    ASSERT_EQ(geteuid(), secondUser);
    click(QAccessible::PageTab, text(u"uninstaller"));
    click(QAccessible::EditableText, text(u"search_placeholder"));
    robot.type("Lumen");
    robot.press(Qt::Key_Return);
    EXPECT_TRUE(Robot::waitUntil([&] { return !state.associatedItems().isEmpty(); }));
    waitUntilIdle();
    const auto found = state.associatedItems().size();
    const auto ticked = state.associatedItemModel()->selectedCount();

    click(QAccessible::Button, text(u"delete_selected"));
    click(QAccessible::Button, text(u"move_to_trash"));
    ASSERT_TRUE(Robot::waitUntil([&] { return state.userNotice().has_value(); }));
    waitUntilIdle();

    // What is the user's own.
    EXPECT_FALSE(fs::exists(onDisk("/Applications/Lumen.app")));
    EXPECT_EQ(namesIn(disk->dataHomePath().toStdString() + "/Trash/info").size(), ticked - 3);
    EXPECT_FALSE(state.selectedApplication());
    // What the helper moved, what it gave a reason for, and what it said nothing of.
    EXPECT_THAT(namesIn(onDisk("/private/var/root/.Trash")), testing::ElementsAre("org.lumen.editor"));
    EXPECT_THAT(namesIn(onDisk("/Users/ada/Library/Logs")),
                AllOf(Contains("Lumen"), Not(Contains("org.lumen.editor"))));
    EXPECT_TRUE(fs::exists(onDisk("/Users/ada/Library/Group Containers/group.org.lumen.shared/library.db")));
    EXPECT_TRUE(fs::exists(onDisk("/Users/ada/Library/Cookies/org.lumen.editor.binarycookies")));

    const auto &notice = *state.userNotice();
    EXPECT_EQ(notice.title, text(u"deletion_failed_title"));
    EXPECT_EQ(notice.message,
              "group.org.lumen.shared: Other programs share it.\n"
              "org.lumen.editor.binarycookies: “org.lumen.editor.binarycookies” couldn't be moved to the Trash "
              "because it belongs to another user and you don't have permission to do that.");
    EXPECT_EQ(state.statusMessage(), QStringLiteral("Przeniesiono: %1, błędy: 2.").arg(ticked - 2));
    EXPECT_TRUE(Robot::waitUntil([&] { return robot.sees(QAccessible::StaticText, notice.message); }));

    click(QAccessible::Button, text(u"ok"));
    EXPECT_EQ(state.associatedItems().size(), found - ticked + 2);
    EXPECT_TRUE(Robot::waitUntil([&] { return !robot.sees(QAccessible::CheckBox, "org.lumen.editor"); }, 5'000));
    for (const auto *stayed : {"group.org.lumen.shared", "org.lumen.editor.binarycookies", "Lumen"})
        EXPECT_TRUE(robot.sees(QAccessible::CheckBox, stayed)) << stayed;
}

/// Does `work` in a process of its own, as this user. What it answers; 1 when it does not come to that.
static int inProcess(uid_t user, const std::function<int()> &work)
{
    const auto process = fork();
    if (process == 0) {
        const bool isUser =
            setgroups(0, nullptr) == 0 && setresgid(user, user, user) == 0 && setresuid(user, user, user) == 0;
        const int answer = isUser ? work() : 1;
        std::fflush(nullptr);
        _exit(answer);
    }
    int status = 1;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

static int buildDisk(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const auto error = disk->build();
    std::fprintf(stderr, "%s", qPrintable(error));
    return error.isEmpty() ? 0 : 1;
}

static void installHelper()
{
    const Url bundle(disk->folder().toUtf8() + "/Applications/Tarnvale.app");
    for (const auto &path :
         {PrivilegedHelperClient::helperExecutablePath(), PrivilegedHelperClient::helperDaemonPlistPath()}) {
        const fs::path file((bundle / path).path().toStdString());
        fs::create_directories(file.parent_path());
        fs::copy_file("/bin/true", file);
    }
}

static void give(const fs::path &path, uid_t user)
{
    EXPECT_EQ(lchown(path.c_str(), user, user), 0);
    for (const auto &entry : fs::recursive_directory_iterator(path))
        EXPECT_EQ(lchown(entry.path().c_str(), user, user), 0);
}

int main(int argc, char **argv)
{
    setSurroundings();
    testing::InitGoogleMock(&argc, argv);
    // Every user gets there, and it is no memory: the disk's files occupy what they say.
    QTemporaryDir folder(QStringLiteral("/var/tmp/tarnvale-XXXXXX"));
    QFile::setPermissions(folder.path(), QFile::permissions(folder.path()) | QFile::ReadOther | QFile::ExeOther);
    const SampleDisk sampleDisk(folder.filePath(QStringLiteral("disk")));
    disk = &sampleDisk;
    qputenv("HOME", QFile::encodeName(sampleDisk.homePath()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(sampleDisk.dataHomePath()));
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    if (inProcess(getuid(), [&] { return buildDisk(argc, argv); }) != 0)
        return 1;
    installHelper();
    give(sampleDisk.folder().toStdString(), secondUser);
    for (const auto *foreign : foreignFolders)
        give(sampleDisk.homePath().toStdString() + '/' + foreign, getuid());

    fs::create_directories(onDisk("/run/dbus"));
    TestBus systemBus(QString::fromStdString(onDisk("/run/dbus/system_bus_socket")));
    systemBus.addService(QString::fromLatin1(HelperService::helperLabel),
                         QStringLiteral(TEST_HELPER_PATH " moves ") + sampleDisk.folder());
    return inProcess(secondUser, [&] {
        const QGuiApplication application(argc, argv);
        return RUN_ALL_TESTS();
    });
}
