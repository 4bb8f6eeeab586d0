// Opens the product's window once and prints one figure of it; started anew for every measurement by WindowFigures.cpp.
//   window_probe first-frame START          milliseconds from START (steady clock, ns) to the first frame, then
//                                           the resident memory in KiB
//   window_probe first-row PREFIX FOLDER    milliseconds from the end of a scan of FOLDER, on the disk in PREFIX, to
//                                           the frame that shows what it found, then how much it found
//   window_probe scroll PREFIX FOLDER       milliseconds of the longest frame while those results are scrolled, then
//                                           how many there are
//   window_probe scroll-applications PREFIX the same for the applications of the disk in PREFIX
//   window_probe buses PREFIX               milliseconds of the longest stall of the main thread while everything is
//                                           asked that is asked of the session's bus and of the system bus of the disk
//                                           in PREFIX, then the moment (steady clock, ns) when the program quits
//                                           with all of it asked again

#include "AppViewModel.h"
#include "BenchDisk.h"
#include "ChosenAppearance.h"
#include "ChosenFolder.h"
#include "DiskRoot.h"
#include "Heartbeat.h"
#include "HelperService.h"
#include "LinuxAppearance.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "TarnvaleApp.h"
#include "Workspace.h"

#include <QFile>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <vector>

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

int firstFrame(Clock::time_point start)
{
    ChosenFolder folderChooser;
    LinuxAppearance appearance;
    std::stop_source stop;
    LinuxPlatform platform(folderChooser, stop.get_token());
    TarnvaleApp program(platform.services(), appearance);
    QObject::connect(&program.window(), &QQuickWindow::frameSwapped, &program.window(), [&] {
        std::printf("%.1f %lld\n", millisecondsSince(start), residentMemory());
        QGuiApplication::quit();
    });
    return QGuiApplication::exec();
}

/// The window on the disk in `prefix`, whose user always chooses `folder`.
class OpenWindow
{
public:
    OpenWindow(const QByteArray &prefix, const Url &folder)
        : m_platform(DiskRoot(prefix), BenchDisk::home(), m_folderChooser, m_stop.get_token()),
          m_program(m_platform.services(), m_appearance)
    {
        m_folderChooser.setAnswer(Url(prefix + folder.path()));
    }

    AppViewModel &state() { return m_program.viewModel(); }
    QQuickWindow &window() { return m_program.window(); }

private:
    ChosenFolder m_folderChooser;
    ChosenAppearance m_appearance;
    std::stop_source m_stop;
    LinuxPlatform m_platform;
    TarnvaleApp m_program;
};

void showDocuments(AppViewModel &state)
{
    state.setSidebarSelection(SidebarSelection::textFinder);
    state.chooseTextFolder();
    QMetaObject::invokeMethod(&state, &AppViewModel::scanTextFiles, Qt::QueuedConnection);
}

int firstRow(const QByteArray &prefix, const QByteArray &folder)
{
    OpenWindow open(prefix, Url(folder));
    auto &state = open.state();
    showDocuments(state);
    Clock::time_point end;
    bool isFound = false;
    QObject::connect(&state, &AppViewModel::statusMessageChanged, &open.window(), [&] {
        if (isFound || state.textFiles().isEmpty())
            return;
        isFound = true;
        end = Clock::now();
    });
    QObject::connect(&open.window(), &QQuickWindow::frameSwapped, &open.window(), [&] {
        if (!isFound)
            return;
        std::printf("%.1f %lld\n", millisecondsSince(end), static_cast<long long>(state.textFiles().size()));
        QGuiApplication::quit();
    });
    return QGuiApplication::exec();
}

/// The view of `count` rows beneath `item` that is shown; null when there is none.
QQuickItem *viewBeneath(QQuickItem *item, int count)
{
    for (auto *child : item->childItems()) {
        if (child->isVisible() && child->inherits("QQuickListView") && child->property("count").toInt() == count)
            return child;
        if (auto *view = viewBeneath(child, count))
            return view;
    }
    return nullptr;
}

/// Scrolls the list of `count` rows in `window` three rows a frame, down and up again: the longest time until a frame
/// is shown, in milliseconds. One frame in a hundred is left out: the system's own pauses are not the window's.
double longestFrame(QQuickWindow &window, int count)
{
    constexpr int frames = 600;
    constexpr int pixels = 150;
    auto *view = viewBeneath(window.contentItem(), count);
    if (!view)
        qFatal("the list is not shown");
    bool isShown = false;
    const auto onShown = QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&] { isShown = true; });
    std::vector<double> times;
    for (int frame = 0; frame < frames; ++frame) {
        isShown = false;
        const auto start = Clock::now();
        const auto place = view->property("contentY").toDouble();
        view->setProperty("contentY", place + (frame < frames / 2 ? pixels : -pixels));
        while (!isShown)
            QGuiApplication::processEvents(QEventLoop::WaitForMoreEvents);
        times.push_back(millisecondsSince(start));
    }
    QObject::disconnect(onShown);
    const auto longest = times.end() - frames / 100 - 1;
    std::ranges::nth_element(times, longest);
    return *longest;
}

int scroll(OpenWindow &open, const ListModelBase &list)
{
    QObject::connect(&list, &ListModelBase::changed, &open.window(), [&] {
        if (list.count() == 0)
            return;
        QTimer::singleShot(500, &open.window(), [&] {
            std::printf("%.1f %d\n", longestFrame(open.window(), list.count()), list.count());
            QGuiApplication::quit();
        });
    });
    return QGuiApplication::exec();
}

int scrollDocuments(const QByteArray &prefix, const QByteArray &folder)
{
    OpenWindow open(prefix, Url(folder));
    showDocuments(open.state());
    return scroll(open, *open.state().textFileModel());
}

int scrollApplications(const QByteArray &prefix)
{
    OpenWindow open(prefix, Url());
    auto &state = open.state();
    state.setSidebarSelection(SidebarSelection::applications);
    QMetaObject::invokeMethod(
        &state, [&state] { state.loadApplications(true); }, Qt::QueuedConnection);
    return scroll(open, *state.applicationModel());
}

int askBuses(const QByteArray &prefix)
{
    using namespace std::chrono_literals;
    ChosenFolder otherwise;
    const DiskRoot root(prefix);
    LinuxFolderChooser folderChooser(otherwise, prefix, [] { return QString(); });
    LinuxAppearance appearance;
    const std::stop_source stop;
    const LinuxPlatform platform(root, BenchDisk::home(), folderChooser, stop.get_token());
    TarnvaleApp program(platform.services(), appearance);

    const auto askAll = [&] {
        auto &helper = platform.services().helperService;
        helper.status();
        helper.registerService();
        helper.moveItemsToTrash({"/Applications/Tool.app"}, QStringLiteral("com.example.tool"));
        platform.services().workspace.reveal(BenchDisk::home());
        folderChooser.chooseFolder(QStringLiteral("title"), QStringLiteral("prompt"));
    };
    std::optional<Heartbeat> heartbeat;
    // The window has come up by then, and the last of what is waited for is given up after three seconds.
    QTimer::singleShot(1s, &program.window(), [&] {
        heartbeat.emplace();
        askAll();
    });
    QTimer::singleShot(5s, &program.window(), [&] {
        const auto stall = heartbeat->takeLongestStall();
        askAll();
        const std::chrono::nanoseconds now = Clock::now().time_since_epoch();
        std::printf("%.1f %lld\n", stall, static_cast<long long>(now.count()));
        QGuiApplication::quit();
    });
    return program.run(stop);
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
    if (arguments.size() == 4 && arguments[1] == u"scroll")
        return scrollDocuments(QFile::encodeName(arguments[2]), QFile::encodeName(arguments[3]));
    if (arguments.size() == 3 && arguments[1] == u"scroll-applications")
        return scrollApplications(QFile::encodeName(arguments[2]));
    if (arguments.size() == 3 && arguments[1] == u"buses")
        return askBuses(QFile::encodeName(arguments[2]));
    return 2;
}
