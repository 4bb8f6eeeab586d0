// Opens the product's window once and prints one figure of it; started anew for every measurement by WindowFigures.cpp.
//   window_probe first-frame START          milliseconds from START (steady clock, ns) to the first frame, then
//                                           the resident memory in KiB
//   window_probe first-row PREFIX FOLDER    milliseconds from the end of a scan of FOLDER, on the disk in PREFIX, to
//                                           the frame that shows what it found

#include "AppViewModel.h"
#include "ChosenAppearance.h"
#include "ChosenFolder.h"
#include "DiskRoot.h"
#include "FolderDialogChooser.h"
#include "LinuxAppearance.h"
#include "LinuxPlatform.h"
#include "TarnvaleApp.h"

#include <QFile>
#include <QGuiApplication>
#include <QQuickWindow>

#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// KiB, as the kernel counts them.
long long residentMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const auto &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return 0;
}

const LocationMap sameLocation = [](const Url &location) { return std::optional(location); };

int firstFrame(Clock::time_point start)
{
    FolderDialogChooser folderChooser(sameLocation);
    LinuxAppearance appearance;
    std::stop_source stop;
    LinuxPlatform platform(folderChooser, stop.get_token());
    TarnvaleApp program(platform.services(), appearance, sameLocation);
    QObject::connect(&program.window(), &QQuickWindow::frameSwapped, &program.window(), [&] {
        std::printf("%.1f %lld\n", millisecondsSince(start), residentMemory());
        QGuiApplication::quit();
    });
    return QGuiApplication::exec();
}

int firstRow(const QByteArray &prefix, const QByteArray &folder)
{
    ChosenFolder folderChooser;
    folderChooser.setAnswer(Url(folder));
    ChosenAppearance appearance;
    std::stop_source stop;
    LinuxPlatform platform(DiskRoot(prefix), Url("/"), folderChooser, stop.get_token());
    TarnvaleApp program(platform.services(), appearance, sameLocation);

    auto &state = program.viewModel();
    state.setSidebarSelection(SidebarSelection::textFinder);
    state.chooseTextFolder();
    Clock::time_point end;
    bool isFound = false;
    QObject::connect(&state, &AppViewModel::statusMessageChanged, &program.window(), [&] {
        if (isFound || state.textFiles().isEmpty())
            return;
        isFound = true;
        end = Clock::now();
    });
    QObject::connect(&program.window(), &QQuickWindow::frameSwapped, &program.window(), [&] {
        if (!isFound)
            return;
        std::printf("%.1f %lld\n", millisecondsSince(end), static_cast<long long>(state.textFiles().size()));
        QGuiApplication::quit();
    });
    QMetaObject::invokeMethod(&state, &AppViewModel::scanTextFiles, Qt::QueuedConnection);
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"first-frame")
        return firstFrame(Clock::time_point(Clock::duration(arguments[2].toLongLong())));
    if (arguments.size() == 4 && arguments[1] == u"first-row")
        return firstRow(QFile::encodeName(arguments[2]), QFile::encodeName(arguments[3]));
    return 2;
}
