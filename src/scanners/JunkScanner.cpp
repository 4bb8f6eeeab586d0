#include "JunkScanner.h"

#include "AllocatedSize.h"
#include "LibraryFolder.h"

#include <algorithm>
#include <functional>

namespace {

struct JunkFolder
{
    /// In the Library.
    const char *name;
    ScanItemKind kind;
};

constexpr JunkFolder junkFolders[] = {
    {"Caches", ScanItemKind::cache},
    {"Logs", ScanItemKind::log},
};

bool belongsToOperatingSystem(QByteArrayView name)
{
    // What unpacking a Mac's archive elsewhere leaves of its metadata.
    if (name == "__MACOSX")
        return true;
    return name.toByteArray().toLower().startsWith("com.apple.");
}

qint64 sizeOf(const DirectoryEntry &entry)
{
    const auto values = entry.resourceValues();
    return values ? allocatedSize(*values) : 0;
}

} // namespace

JunkScanner::JunkScanner(const FileSystem &fileSystem) : m_fileSystem(fileSystem) { }

QList<ScanItem> JunkScanner::scanCachesAndLogs(qint64 minimumSize) const
{
    QList<ScanItem> items;
    for (const auto &[folder, kind] : junkFolders) {
        for (const auto &entry : m_fileSystem.contentsOfDirectory(libraryFolder(m_fileSystem) / folder)) {
            if (belongsToOperatingSystem(entry.name()))
                continue;
            // Only folders are measured with the others: there may be a million files.
            if (entry.type() != FileType::directory && sizeOf(entry) < minimumSize)
                continue;
            items.push_back({entry.url(), kind, ScanConfidence::exact, /*sizeBytes*/ 0, /*isSelected*/ false});
        }
    }
    measure(m_fileSystem, items);
    items.removeIf([minimumSize](const ScanItem &item) { return item.sizeBytes < minimumSize; });
    std::ranges::stable_sort(items, std::greater{}, &ScanItem::sizeBytes);
    return items;
}
