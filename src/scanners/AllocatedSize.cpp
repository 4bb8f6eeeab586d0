#include "AllocatedSize.h"

#include <QtNumeric>

#include <limits>

namespace {

// Folders add nothing of their own, and neither do devices and pipes.
bool hasSizeOfItsOwn(FileType type)
{
    return type == FileType::regular || type == FileType::symbolicLink;
}

} // namespace

qint64 allocatedSize(const FileSystem &fileSystem, const Url &url)
{
    const auto ownValues = fileSystem.resourceValues(url);
    if (ownValues && hasSizeOfItsOwn(ownValues->type))
        return allocatedSize(*ownValues);

    qint64 total = 0;
    for (const auto &entry : fileSystem.enumerate(url)) {
        if (!hasSizeOfItsOwn(entry.type()))
            continue;
        const auto values = entry.resourceValues();
        if (values && hasSizeOfItsOwn(values->type) && qAddOverflow(total, allocatedSize(*values), &total))
            return std::numeric_limits<qint64>::max();
    }
    return total;
}

qint64 allocatedSize(const ResourceValues &values)
{
    return values.totalAllocatedSize.value_or(values.allocatedSize.value_or(0));
}
