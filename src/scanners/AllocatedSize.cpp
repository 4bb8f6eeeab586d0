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
        if (const auto values = entry.resourceValues())
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
    // Each is looked at by the thread that would enter it: one that does not answer holds up no other.
    const auto isToBeEntered = [&](size_t index) {
        const auto values = fileSystem.resourceValues(urls[static_cast<qsizetype>(index)]);
        if (!values || !hasSizeOfItsOwn(values->type))
            return true;
        sizes[index].add(allocatedSize(*values));
        return false;
    };
    fileSystem.walk(
        urls, [&sizes](FolderPart &part) { sizes[part.walkedFolder()].add(sizeOfFilesAmong(part)); },
        isToBeEntered);
    QList<qint64> result;
    std::ranges::transform(sizes, std::back_inserter(result), &Sum::value);
    return result;
}

qint64 allocatedSize(const ResourceValues &values)
{
    return values.totalAllocatedSize.value_or(values.allocatedSize.value_or(0));
}
