#include "AllocatedSize.h"

#include <QtNumeric>

#include <algorithm>
#include <atomic>
#include <limits>
#include <vector>

namespace {

// Folders add nothing of their own, and neither do devices and pipes.
bool hasSizeOfItsOwn(FileType type)
{
    return type == FileType::regular || type == FileType::symbolicLink;
}

/// A sum that several threads add to; no more than fits.
class Sum
{
public:
    void add(qint64 value)
    {
        auto before = m_value.load(std::memory_order_relaxed);
        while (!m_value.compare_exchange_weak(before, saturated(before, value), std::memory_order_relaxed)) { }
    }
    qint64 value() const { return m_value; }

    static qint64 saturated(qint64 a, qint64 b)
    {
        return qAddOverflow(a, b, &a) ? std::numeric_limits<qint64>::max() : a;
    }

private:
    std::atomic<qint64> m_value = 0;
};

qint64 sizeOfFilesAmong(FolderPart &part)
{
    qint64 size = 0;
    for (const auto &entry : part) {
        if (!hasSizeOfItsOwn(entry.type()))
            continue;
        const auto values = entry.resourceValues();
        if (values && hasSizeOfItsOwn(values->type))
            size = Sum::saturated(size, allocatedSize(*values));
    }
    return size;
}

} // namespace

qint64 allocatedSize(const FileSystem &fileSystem, const Url &url)
{
    return allocatedSizes(fileSystem, {url}).front();
}

QList<qint64> allocatedSizes(const FileSystem &fileSystem, const QList<Url> &urls)
{
    std::vector<Sum> sizes(static_cast<size_t>(urls.size()));
    QList<Url> folders;
    std::vector<Sum *> sizesOfFolders;
    for (auto size = sizes.begin(); const auto &url : urls) {
        const auto values = fileSystem.resourceValues(url);
        if (values && hasSizeOfItsOwn(values->type)) {
            size->add(allocatedSize(*values));
        } else {
            folders.push_back(url);
            sizesOfFolders.push_back(&*size);
        }
        ++size;
    }
    fileSystem.walk(folders, [&sizesOfFolders](FolderPart &part) {
        sizesOfFolders[part.walkedFolder()]->add(sizeOfFilesAmong(part));
    });
    QList<qint64> result;
    std::ranges::transform(sizes, std::back_inserter(result), &Sum::value);
    return result;
}

qint64 allocatedSize(const ResourceValues &values)
{
    return values.totalAllocatedSize.value_or(values.allocatedSize.value_or(0));
}
