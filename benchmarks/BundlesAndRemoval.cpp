// The longest stall of the main thread while the state object runs each scan, a catalog scan of 200 bundles and a
// removal of 200 items.

#include "AppViewModel.h"
#include "BenchDisk.h"
#include "Figure.h"
#include "FolderChooser.h"
#include "Heartbeat.h"
#include "LinuxPlatform.h"
#include "ReadyFuture.h"

#include <QEventLoop>

#include <algorithm>
#include <functional>

namespace {

constexpr double mostMilliseconds = 16;

/// The user who always takes the caches.
class CachesChooser : public FolderChooser
{
public:
    explicit CachesChooser(DiskRoot root) : m_root(std::move(root)) { }

    QFuture<std::optional<Url>> chooseFolder(const QString &, const QString &) override
    {
        return readyFuture(std::optional(Url(m_root.hostPath(BenchDisk::caches()))));
    }

private:
    DiskRoot m_root;
};

/// The state object on one disk, as the program has it.
class Session
{
public:
    explicit Session(const DiskRoot &root)
        : m_chooser(root), m_platform(root, BenchDisk::home(), m_chooser, {}), state(m_platform.services())
    {
    }

    /// The longest stall while `operation` runs.
    double stall(const std::function<void(AppViewModel &)> &operation)
    {
        m_heartbeat.takeLongestStall();
        operation(state);
        while (state.isProcessing())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_heartbeat.takeLongestStall();
    }

private:
    CachesChooser m_chooser;
    LinuxPlatform m_platform;
    Heartbeat m_heartbeat;

public:
    AppViewModel state;
};

Figure stallFigure(const QString &what, const std::function<double()> &measure)
{
    // The median of five: another program that has the processor for a moment is not our stall.
    std::vector<double> stalls(5);
    std::ranges::generate(stalls, measure);
    std::ranges::sort(stalls);
    return atMost("longest stall, " + what, stalls[2], mostMilliseconds, QStringLiteral("ms"));
}

double stallOfRemoval(const BenchDisk &disk)
{
    disk.restoreLargeCaches();
    Session session(disk.applications());
    session.stall(&AppViewModel::scanCleaner);
    auto *items = session.state.cleanerItemModel();
    for (int row = 0; row < items->count(); ++row)
        items->setSelected(row, true);
    session.state.requestDeletion(ScanScope::cleaner);
    const auto request = session.state.pendingDeletion();
    const auto stall = session.stall([&](auto &state) { state.confirmDeletion(*request); });
    if (session.state.lastReport()->deletedCount != BenchDisk::itemCount)
        qFatal("not every item was moved to the Trash");
    return stall;
}

} // namespace

std::vector<Figure> bundlesAndRemoval(const BenchDisk &disk)
{
    Session applications(disk.applications());
    Session tree(disk.tree());
    tree.state.chooseMediaFolder();
    tree.state.chooseTextFolder();
    tree.state.setLeftoverQuery("com.example.tool999");
    QCoreApplication::processEvents();
    return {
        stallFigure("catalog scan of 200 bundles",
                    [&] { return applications.stall([](auto &state) { state.loadApplications(true); }); }),
        stallFigure("leftover scan", [&] { return tree.stall(&AppViewModel::scanLeftovers); }),
        stallFigure("exact-name search", [&] { return tree.stall(&AppViewModel::searchLeftovers); }),
        stallFigure("cache and log scan", [&] { return tree.stall(&AppViewModel::scanCleaner); }),
        stallFigure("media scan, 15,000 results", [&] { return tree.stall(&AppViewModel::scanMedia); }),
        stallFigure("document scan, 50,000 results", [&] { return tree.stall(&AppViewModel::scanTextFiles); }),
        stallFigure("removal of 200 items", [&] { return stallOfRemoval(disk); }),
    };
}
