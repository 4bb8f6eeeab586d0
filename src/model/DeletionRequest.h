#pragma once

#include "ScanItem.h"

#include <QList>
#include <QUuid>

/// A removal that waits for the user's confirmation.
struct DeletionRequest
{
    /// Fresh for every request.
    QUuid id;
    /// The list that the items came from.
    ScanScope scope;
    /// The selected items in the order of their list.
    QList<ScanItem> items;
};

Q_DECLARE_METATYPE(DeletionRequest)
