#pragma once

#include "Enumerations.h"
#include "Url.h"

/// One document file found under a chosen folder.
struct TextFile
{
    Url url;
    TextFileCategory category;
    /// Allocated bytes on disk.
    qint64 sizeBytes;

    /// Identity: the standardised path.
    QByteArray id() const { return url.standardizedPath(); }

    bool operator==(const TextFile &) const = default;
    friend size_t qHash(const TextFile &file, size_t salt = 0)
    {
        return qHashMulti(salt, file.url, rawValue(file.category), file.sizeBytes);
    }
};
