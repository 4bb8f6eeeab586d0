#pragma once

#include "DeletionOutcome.h"
#include "DeletionRequest.h"
#include "ListModel.h"

#include <QCoro/QCoroTask>
#include <QSet>

#include <memory>

class AppViewModel;
class TrashService;
struct OperationReport;
struct Platform;

/// The removal side of the state object: the confirmed request goes to the Trash, and its outcomes become a
/// report, shorter lists, a status line and perhaps a notice. Called on the main thread.
class RemovalWorkflow
{
public:
    RemovalWorkflow(AppViewModel &state, const Platform &platform);

    /// Makes the selected items of the scope's list the pending request.
    void requestDeletion(ScanScope scope);

    QCoro::Task<> confirmDeletion(DeletionRequest request);

private:
    QCoro::Task<> performDeletion(DeletionRequest request);
    /// Takes the items with these paths out of the list as it is by then: ticks change meanwhile, and it may be
    /// emptied.
    QCoro::Task<> prune(ListModel<ScanItem> &list, QSet<QByteArray> paths);
    QCoro::Task<> refreshCatalog();

    std::optional<QString> identifierOfSelected(ScanScope scope) const;
    /// Chooses the status line and, where something failed, the notice.
    void announce(ScanScope scope, const OperationReport &report);
    /// The first few failures, one a line.
    QString listed(const QList<DeletionOutcome> &failures) const;
    void notify(QStringView titleKey, const QString &message);

    /// Whose items a request names. The selection may be another one by the time of the confirmation.
    struct Asked
    {
        QUuid request;
        std::optional<QString> bundleIdentifier;
    };

    AppViewModel &m_state;
    Asked m_asked;
    // Shared with a removal in progress, which may outlive the state object.
    std::shared_ptr<TrashService> m_trashService;
};
