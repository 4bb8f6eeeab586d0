#pragma once

#include "MediaFile.h"

#include <QList>
#include <QSet>

class FileSystem;

/// Finds video, audio and image files by their extension. Stateless; safe to call from any thread.
class MediaScanner
{
public:
    explicit MediaScanner(const FileSystem &fileSystem);

    /// The first `limit` files of the wanted categories that a walk of `folder` meets, largest first. Blocks.
    QList<MediaFile> scanMediaFiles(const Url &folder, const QSet<MediaCategory> &categories, qint64 limit) const;

private:
    const FileSystem &m_fileSystem;
};
