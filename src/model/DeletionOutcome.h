#pragma once

#include "ScanItem.h"

#include <optional>

/// What came of one item that a removal tried to move.
struct DeletionOutcome
{
    /// As it was handed to the removal.
    ScanItem item;
    /// Absent: nothing remains at the item's path. Present: it was not moved, for this reason in words.
    std::optional<QString> errorDescription;
};
