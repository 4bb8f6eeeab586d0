#pragma once

#include "AllocatedSize.h"
#include "ExtensionKey.h"
#include "OrderedResults.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <algorithm>
#include <functional>
#include <span>

/// The extensions of one category's files, lowercase and without the dot. No extension is in two categories.
template <typename Category> struct ExtensionTable
{
    Category category;
    std::span<const std::string_view> extensions;
};

/// The first `limit` regular files of the wanted categories that a walk of `folder` meets, largest first; contents
/// are never read. A `File` is made of its URL, category and size.
template <typename File, typename Category, size_t count>
QList<File> scanByExtension(const FileSystem &fileSystem, const Url &folder, const QSet<Category> &categories,
                            qint64 limit, const ExtensionTable<Category> (&tables)[count])
{
    QHash<quint64, Category> wanted;
    for (const auto &[category, extensions] : tables) {
        for (const auto extension : extensions) {
            if (categories.contains(category))
                wanted.insert(extensionKey(extension), category);
        }
    }
    if (wanted.isEmpty() || folder.isEmpty() || limit <= 0)
        return {};

    OrderedResults<File> found(limit);
    fileSystem.walk({folder}, [&found, &wanted](FolderPart &part) {
        for (auto &entry : part) {
            if (entry.type() == FileType::directory && found.isBehindTheLast([&entry] { return entry.place(); }))
                return;
            if (entry.type() != FileType::regular)
                continue;
            const auto category = wanted.constFind(extensionKeyOf(entry.name()));
            if (category == wanted.constEnd())
                continue;
            if (found.isBehindTheLast([&entry] { return entry.place(); }))
                return;
            if (const auto values = entry.resourceValues())
                found.add(entry.place(), {entry.url(), *category, allocatedSize(*values)});
        }
    });
    auto files = found.take();
    std::ranges::stable_sort(files, std::greater{}, &File::sizeBytes);
    return files;
}
