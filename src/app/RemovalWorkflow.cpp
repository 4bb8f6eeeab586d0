#include "RemovalWorkflow.h"

#include "AppViewModel.h"
#include "ByteCount.h"
#include "Platform.h"
#include "PrivilegedHelperClient.h"
#include "ScanWorkflows.h"
#include "TrashService.h"
#include "WhileAlive.h"

#include <algorithm>

namespace {

constexpr qsizetype mostListedFailures = 5;

/// Of a disk that is not the running system's: whoever served the system would take its paths for the system's.
class NoHelper : public PrivilegedHelper
{
public:
    QCoro::Task<HelperReply> moveItemsToTrash(QList<Url>, QString) override { co_return {}; }
};

std::unique_ptr<PrivilegedHelper> makeHelper(const Platform &platform)
{
    if (platform.macDisk)
        return std::make_unique<NoHelper>();
    return std::make_unique<PrivilegedHelperClient>(platform.fileSystem, platform.bundleReader,
                                                    platform.helperService);
}

/// The trash service together with whom it hands failures to.
struct TrashServiceWithHelper
{
    explicit TrashServiceWithHelper(const Platform &platform)
        : helper(makeHelper(platform)),
          service(platform.fileSystem, platform.bundleReader, platform.workspace, *helper)
    {
    }

    std::unique_ptr<PrivilegedHelper> helper;
    TrashService service;
};

std::shared_ptr<TrashService> makeTrashService(const Platform &platform)
{
    const auto both = std::make_shared<TrashServiceWithHelper>(platform);
    return {both, &both->service};
}

/// Whether the Trash itself refused the item, which leaves an application uninstalled as far as possible. The
/// reasons are in Polish or English.
bool isAboutTrash(const DeletionOutcome &failure)
{
    const auto reason = failure.errorDescription.value_or(QString()).toLower();
    return reason.contains(u"trash") || reason.contains(u"kosz");
}

/// What the outcomes come to.
struct Settlement
{
    OperationReport report{0, 0, 0, {}};
    QSet<QByteArray> movedPaths;
};

Settlement settlementOf(const QList<DeletionOutcome> &outcomes)
{
    Settlement settlement;
    auto &report = settlement.report;
    for (const auto &outcome : outcomes) {
        if (outcome.errorDescription) {
            ++report.failedCount;
            report.failures.append(outcome);
        } else {
            ++report.deletedCount;
            report.bytesFreed += outcome.item.sizeBytes;
            settlement.movedPaths.insert(outcome.item.id());
        }
    }
    return settlement;
}

/// The places of the items with these paths, in ascending order.
QList<int> placesOf(const QList<ScanItem> &items, const QSet<QByteArray> &paths)
{
    QList<int> places;
    for (int place = 0; place < items.size(); ++place) {
        if (paths.contains(items.at(place).id()))
            places.append(place);
    }
    return places;
}

} // namespace

RemovalWorkflow::RemovalWorkflow(AppViewModel &state, const Platform &platform)
    : m_state(state), m_trashService(makeTrashService(platform))
{
}

void RemovalWorkflow::requestDeletion(ScanScope scope)
{
    auto selected = (m_state.*AppViewModel::itemsOf(scope)).rows();
    selected.removeIf([](const ScanItem &item) { return !item.isSelected; });
    if (selected.isEmpty())
        return m_state.say(u"no_selection");
    m_asked = {QUuid::createUuid(), identifierOfSelected(scope)};
    // A bundle that is still being read comes too late to take the place of what is asked about.
    if (scope == ScanScope::uninstaller)
        m_state.turnToAnotherApplication();
    m_state.setPendingDeletion(DeletionRequest{m_asked.request, scope, std::move(selected)});
}

QCoro::Task<> RemovalWorkflow::confirmDeletion(DeletionRequest request)
{
    m_state.setPendingDeletion({});

    if (!m_state.begin(u"move_to_trash"))
        co_return;
    auto deletion = performDeletion(std::move(request));
    co_await deletion;
    m_state.finish();
}

QCoro::Task<> RemovalWorkflow::performDeletion(DeletionRequest request)
{
    const auto trashService = m_trashService;
    const auto bundleIdentifier =
        request.id == m_asked.request ? m_asked.bundleIdentifier : identifierOfSelected(request.scope);
    auto removal = whileAlive(&m_state, trashService->moveToTrash(request.items, bundleIdentifier));
    const auto outcomes = co_await removal;
    auto summing = whileAlive(
        &m_state, m_state.m_background.runInBackground(TaskPriority::userInitiated, &settlementOf, outcomes));
    const auto settlement = co_await summing;

    m_state.setLastReport(settlement.report);
    auto pruning = prune(m_state.*AppViewModel::itemsOf(request.scope), settlement.movedPaths);
    co_await pruning;
    announce(request.scope, settlement.report);
    if (request.scope == ScanScope::uninstaller) {
        auto refreshing = refreshCatalog();
        co_await refreshing;
    }
}

QCoro::Task<> RemovalWorkflow::prune(ListModel<ScanItem> &list, QSet<QByteArray> paths)
{
    QList<int> places;
    quint64 revision = 0;
    do {
        revision = list.revision();
        auto looking = whileAlive(&m_state, m_state.m_background.runInBackground(TaskPriority::userInitiated,
                                                                                 &placesOf, list.rows(), paths));
        places = co_await looking;
    } while (list.revision() != revision);
    list.remove(places);
}

QCoro::Task<> RemovalWorkflow::refreshCatalog()
{
    auto scan = whileAlive(&m_state, m_state.scans().startCatalogScan());
    auto found = co_await scan;
    m_state.m_applications.replace(std::move(found));
    if (m_state.selectedApplicationRow() < 0)
        m_state.setSelectedApplication({});
}

std::optional<QString> RemovalWorkflow::identifierOfSelected(ScanScope scope) const
{
    const auto &application = m_state.selectedApplication();
    if (scope != ScanScope::uninstaller || !application)
        return std::nullopt;
    return application->bundleIdentifier;
}

void RemovalWorkflow::announce(ScanScope scope, const OperationReport &report)
{
    if (report.failures.isEmpty()) {
        const auto freed = formattedByteCount(report.bytesFreed, ByteCountStyle::file);
        return m_state.say(u"delete_success", report.deletedCount, freed);
    }

    // Of another Mac's disk the Trash's reasons are all that can be acted on: how it is mounted, and for whom.
    const auto onlyTrash = !m_state.m_macDisk && std::ranges::all_of(report.failures, isAboutTrash);
    if (onlyTrash && scope == ScanScope::uninstaller) {
        m_state.say(u"uninstall_completed_with_notes_status");
        notify(u"uninstall_completed_with_notes_title", m_state.text(u"uninstall_completed_with_notes_message"));
    } else if (onlyTrash && scope == ScanScope::leftovers) {
        m_state.say(u"leftovers_completed_with_notes_status");
        notify(u"leftovers_completed_with_notes_title",
               m_state.text(u"leftovers_completed_with_notes_message", report.deletedCount, report.failedCount));
    } else {
        m_state.say(u"delete_partial", report.deletedCount, report.failedCount);
        notify(u"deletion_failed_title", listed(report.failures));
    }
}

QString RemovalWorkflow::listed(const QList<DeletionOutcome> &failures) const
{
    QStringList lines;
    for (const auto &[item, reason] : failures.first(std::min(failures.size(), mostListedFailures)))
        lines.append(QStringLiteral("%1: %2").arg(item.url.displayName(),
                                                  reason ? *reason : m_state.text(u"unknown_error")));
    return lines.join(u'\n');
}

void RemovalWorkflow::notify(QStringView titleKey, const QString &message)
{
    m_state.notify(m_state.text(titleKey), message);
}
