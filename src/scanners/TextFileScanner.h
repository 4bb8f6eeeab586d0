#pragma once

#include "TextFile.h"

#include <QList>
#include <QSet>

class FileSystem;

/// Finds document files by their extension. Stateless; safe to call from any thread.
class TextFileScanner
{
public:
    explicit TextFileScanner(const FileSystem &fileSystem);

    /// The first `limit` files of the wanted categories that a walk of `folder` meets, largest first. Blocks.
    QList<TextFile> scanTextFiles(const Url &folder, const QSet<TextFileCategory> &categories, qint64 limit) const;

private:
    const FileSystem &m_fileSystem;
};
