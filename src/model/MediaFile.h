#pragma once

#include "Enumerations.h"
#include "Url.h"

/// One media file found under a chosen folder.
struct MediaFile
{
    Url url;
    MediaCategory category;
    /// Allocated bytes on disk.
    qint64 sizeBytes;

    /// Identity: the standardised path.
    QByteArray id() const { return url.standardizedPath(); }

    bool operator==(const MediaFile &) const = default;
    friend size_t qHash(const MediaFile &file, size_t salt = 0)
    {
        return qHashMulti(salt, file.url, rawValue(file.category), file.sizeBytes);
    }
};
