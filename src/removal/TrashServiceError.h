#pragma once

#include <QString>

/// Why the trash service did not move an item.
struct TrashServiceError
{
    enum Case { recycleFailed, unsafePath, systemApplication, missingItem };

    Case code;
    /// Of `recycleFailed`: the whole description. Empty otherwise.
    QString message;

    /// What the user is shown; in Polish, whatever the language of the interface.
    QString description() const;

    bool operator==(const TrashServiceError &) const = default;
};
