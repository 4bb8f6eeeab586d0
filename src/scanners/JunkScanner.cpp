#include "JunkScanner.h"

#include "AllocatedSize.h"
#include "LibraryFolder.h"

#include <algorithm>

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
    return name.toByteArray().toLower().startsWith("com.apple.");
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
            const auto url = entry.url();
            const auto size = allocatedSize(m_fileSystem, url);
            if (size >= minimumSize)
                items.push_back({url, kind, ScanConfidence::exact, size, /*isSelected*/ false});
        }
    }
    std::ranges::stable_sort(items, std::greater{}, &ScanItem::sizeBytes);
    return items;
}
