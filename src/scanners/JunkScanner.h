#pragma once

#include "ScanItem.h"

#include <QList>

class FileSystem;

/// Finds large caches and logs of the current user. Stateless; safe to call from any thread.
class JunkScanner
{
public:
    explicit JunkScanner(const FileSystem &fileSystem);

    /// The entries of the user's caches and logs that occupy at least `minimumSize` bytes, but for the operating
    /// system's own, largest first and unselected. Blocks.
    QList<ScanItem> scanCachesAndLogs(qint64 minimumSize) const;

private:
    const FileSystem &m_fileSystem;
};
