#pragma once

#include "FileSystem.h"

#include <QList>

#include <utility>

/// How many bytes the item at `url` occupies on disk: a file or a link itself, a folder with what is below it.
/// Hidden items beneath a folder and the contents of packages beneath it add nothing; links are not followed.
/// What cannot be read counts as nothing. Blocks; safe to call from any thread.
qint64 allocatedSize(const FileSystem &fileSystem, const Url &url);

/// The sizes of several items, which are measured side by side.
QList<qint64> allocatedSizes(const FileSystem &fileSystem, const QList<Url> &urls);

/// Gives each item its size, as `sizeBytes`, by its `url`.
template <typename Item> void measure(const FileSystem &fileSystem, QList<Item> &items)
{
    QList<Url> urls;
    for (const auto &item : std::as_const(items))
        urls.push_back(item.url);
    const auto sizes = allocatedSizes(fileSystem, urls);
    for (qsizetype i = 0; i < items.size(); ++i)
        items[i].sizeBytes = sizes[i];
}

/// How many bytes one file or link with these values occupies by itself; 0 where the file system does not tell.
qint64 allocatedSize(const ResourceValues &values);
