#pragma once

#include "DeletionOutcome.h"
#include "PrivilegedHelper.h"
#include "TrashServiceError.h"

#include <QCoro/QCoroTask>
#include <QList>

#include <optional>

class BundleReader;
class FileSystem;
class Workspace;

/// The only code that removes anything: moves items to the Trash, one after another, each only after its path has
/// passed the safety check. Lives on the main thread, which is free in between however many there are; stateless.
class TrashService
{
public:
    TrashService(const FileSystem &fileSystem, const BundleReader &bundleReader, Workspace &workspace,
                 PrivilegedHelper &privilegedHelper);

    /// Exactly one outcome an item, in their order. What could not be moved is handed to the privileged helper
    /// when the removal concerns a known application: the one with `bundleIdentifier` or, when that is absent, the
    /// first item that is an application.
    QCoro::Task<QList<DeletionOutcome>> moveToTrash(QList<ScanItem> items,
                                                    std::optional<QString> bundleIdentifier);

    // The steps of a removal.

    /// The safety check: why the item at `url` must not be moved; absent when it may.
    std::optional<TrashServiceError> validate(const Url &url) const;

    /// Moves one item that has passed the check. Absent when it is in the Trash or gone.
    QCoro::Task<std::optional<TrashServiceError>> recycle(Url url);

    /// Every failure whose item is no longer there, whoever removed it, becomes a success.
    QCoro::Task<QList<DeletionOutcome>> reconcileOutcomes(QList<DeletionOutcome> outcomes) const;

private:
    std::optional<QString> identifierOfFirstApplication(const QList<ScanItem> &items) const;
    QCoro::Task<std::optional<TrashServiceError>> moveItem(Url url);
    QCoro::Task<QList<DeletionOutcome>> handFailuresToHelper(QList<DeletionOutcome> outcomes,
                                                             QString bundleIdentifier);
    bool isGone(const Url &url) const;

    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    Workspace &m_workspace;
    PrivilegedHelper &m_privilegedHelper;
};
