#pragma once

#include "Url.h"

#include <QCoro/QCoroTask>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

/// What came of one call to the privileged helper.
struct HelperReply
{
    /// From the standardised path of an item to the empty text (moved) or to why it was not, in the helper's
    /// words. Nothing for an item that the helper does not report on.
    QHash<QByteArray, QString> messages;
    /// Why the call failed as a whole, worded for the user; absent when the helper replied.
    std::optional<QString> errorDescription;
};

/// What the trash service asks of the privileged helper. Called on the main thread.
class PrivilegedHelper
{
public:
    virtual ~PrivilegedHelper() = default;

    /// Hands the items over once and answers once.
    virtual QCoro::Task<HelperReply> moveItemsToTrash(QList<Url> items, QString bundleIdentifier) = 0;
};
