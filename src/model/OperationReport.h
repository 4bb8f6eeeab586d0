#pragma once

#include "DeletionOutcome.h"

#include <QList>

/// The summary of one completed removal.
struct OperationReport
{
    qint64 deletedCount;
    qint64 failedCount;
    /// Sum of the sizes of the moved items.
    qint64 bytesFreed;
    /// The outcomes with an error, in the order in which the removal returned them.
    QList<DeletionOutcome> failures;
};

Q_DECLARE_METATYPE(OperationReport)
