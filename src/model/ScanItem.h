#pragma once

#include "Enumerations.h"
#include "Url.h"

/// One file or folder found by a scan whose results can be removed.
struct ScanItem
{
    Url url;
    ScanItemKind kind;
    ScanConfidence confidence;
    /// Allocated bytes on disk; a folder counts with everything below it.
    qint64 sizeBytes;
    /// Whether it takes part in the next removal. The scanner sets the first value, the user changes it.
    bool isSelected;

    /// Identity: the standardised path.
    QByteArray id() const { return url.standardizedPath(); }

    bool operator==(const ScanItem &) const = default;
    friend size_t qHash(const ScanItem &item, size_t salt = 0)
    {
        return qHashMulti(salt, item.url, rawValue(item.kind), rawValue(item.confidence), item.sizeBytes,
                          item.isSelected);
    }
};
