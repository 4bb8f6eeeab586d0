// How the program ends, whatever hangs: the program in its window is started as a process of its own, gets into
// trouble, and quits.

#include "AppViewModel.h"
#include "FolderDialogChooser.h"
#include "HangingMount.h"
#include "HelperService.h"
#include "LinuxAppearance.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "ScriptedBus.h"
#include "Surroundings.h"
#include "TarnvaleApp.h"
#include "TestBus.h"
#include "Workspace.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>

#include <iostream>

/// What the window is told to be about: everything that speaks with a bus; a scan; a scan and removals.
constexpr auto onBuses = "buses";
constexpr auto onScan = "scan";
constexpr auto onMoves = "moves";

constexpr int moveCount = 1'000;
const Url home("/home");

/// Far less than hangs take, and room for a busy machine.
constexpr qint64 mostMilliseconds = 5'000;

/// The program on the disk in `folder`, which quits soon.
static int session(const QByteArray &folder, const std::string &trouble)
{
    const DiskRoot root(folder);
    FolderDialogChooser dialog(folder);
    LinuxFolderChooser chooser(dialog, folder, [] { return QString(); });
    LinuxAppearance appearance;
    std::stop_source stop;
    const LinuxPlatform platform(root, home, chooser, stop.get_token());
    const auto &services = platform.services();
    TarnvaleApp program(services, appearance);

    if (trouble == onBuses) {
        services.helperService.status();
        services.helperService.registerService();
        services.helperService.moveItemsToTrash({"/a"}, "org.ala");
        services.workspace.reveal(home);
        program.viewModel().chooseMediaFolder();
    } else {
        program.viewModel().scanCleaner();
    }
    QTimer::singleShot(500, [&] {
        if (trouble != onBuses && !program.viewModel().isProcessing())
            std::cout << "The scan has ended." << std::endl;
        for (int i = 0; trouble == onMoves && i < moveCount; ++i)
            services.workspace.recycle(home / QByteArray::number(i));
        std::cout << "quitting" << std::endl;
        QGuiApplication::quit();
    });
    return program.run(stop);
}

struct Quitting : testing::Test
{
    Quitting()
    {
        environment.insert("HOME", onDisk("/home"));
        environment.insert("XDG_DATA_HOME", onDisk("/home/.local/share"));
        QDir(m_folder.path()).mkpath("run/dbus");
        QDir(m_folder.path()).mkpath("home/Library/Caches/remote");
    }

    QString onDisk(const QString &path) const { return m_folder.path() + path; }

    /// Milliseconds from the moment when the program quits to its end.
    qint64 timeToEnd(const QString &trouble)
    {
        QProcess program;
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QCoreApplication::applicationFilePath(), {m_folder.path(), trouble});
        EXPECT_TRUE(program.waitForReadyRead(20'000));
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(program.readLine(), "quitting\n");
        EXPECT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        return clock.elapsed();
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    // Not where temporary files go, which may be memory, and memory has no Trash.
    QTemporaryDir m_folder{QDir::current().filePath("quitting-XXXXXX")};
};

TEST_F(Quitting, isNotHeldUpByABusThatHangsAtAnyStep)
{
    const auto socket = onDisk("/run/dbus/system_bus_socket");
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + socket);
    {
        TestBus bus(socket);
        bus.freeze();
        EXPECT_LT(timeToEnd(onBuses), mostMilliseconds) << "while it connects";
    }
    const std::string label = HelperService::helperLabel;
    const std::pair<const std::string, std::string> names{"ListActivatableNames", "(['" + label + "'],)"};
    const std::pair<const std::string, std::string> version{"Get", "(<uint32 3>,)"};
    const ScriptedBus::Script scripts[] = {{}, {ScriptedBus::hello()}, {ScriptedBus::hello(), names, version}};
    for (const auto &script : scripts) {
        QFile::remove(socket);
        const ScriptedBus bus(script, socket);
        EXPECT_LT(timeToEnd(onBuses), mostMilliseconds) << testing::PrintToString(script);
    }
}

TEST_F(Quitting, abandonsAScanThatHangsInTheSystemAndFinishesTheMoves)
{
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const HangingMount mount(onDisk("/home/Library/Caches/remote").toStdString());
    if (!mount.isMounted)
        GTEST_SKIP() << "NOT TRIED: only root may mount a file system that hangs, where the kernel has FUSE.";

    EXPECT_LT(timeToEnd(onScan), mostMilliseconds);
    for (int i = 0; i < moveCount; ++i)
        QFile(onDisk("/home/%1").arg(i)).open(QIODevice::WriteOnly);
    timeToEnd(onMoves);
    EXPECT_EQ(QDir(onDisk("/home/.local/share/Trash/files")).entryList(QDir::Files).size(), moveCount);
}

int main(int argc, char **argv)
{
    if (argc == 3) {
        const QGuiApplication application(argc, argv);
        return session(argv[1], argv[2]);
    }
    setSurroundings();
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
