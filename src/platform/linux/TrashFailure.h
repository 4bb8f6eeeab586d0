#pragma once

#include "Enumerations.h"

#include <QString>

/// Why the desktop's Trash did not take an item.
enum class TrashFailure {
    itemIsMissing,
    itemIsOutOfSight,
    noTrashOnDisk,
    noPermission,
    itemIsOfAnotherUser,
    diskIsReadOnly,
    diskIsFull,
    nameIsTooLong,
    itemIsInUse,
    itemIsOutsideOfDisk,
    other,
};

/// The reason behind an error number of the system, `other` for one that does not come from the item or its disk.
TrashFailure trashFailureOf(int errorNumber);

/// What a person is told: that the item called `name` could not be moved, why, and what there is to be done.
QString trashFailureText(TrashFailure failure, const QString &name, AppLanguage language);

/// The language of the user's system, Polish or English; English also where it is neither. Any thread.
AppLanguage systemLanguage();
