#pragma once

#include "DeletionOutcome.h"
#include "PrivilegedHelper.h"

#include <QCoro/QCoroTask>
#include <QList>

#include <optional>

class BundleReader;
class FileSystem;
class Workspace;

/// The only code that removes anything: moves items to the Trash, one after another, each only after its path has
/// passed the safety check. Lives on the main thread; stateless.
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

private:
    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    Workspace &m_workspace;
    PrivilegedHelper &m_privilegedHelper;
};
