#pragma once

#include "Url.h"

#include <QFuture>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

/// The helper's answer to one request.
struct HelperAnswer
{
    /// From a path as it was sent to the empty text (moved) or to why it was not; nothing for what the helper does
    /// not report on.
    QHash<QByteArray, QString> messages;
    /// Why there was no reply, in the system's words; absent when there was one.
    std::optional<QString> connectionError;
};

/// The system's service management as the privileged helper needs it, and the one call to the helper.
/// Called on the main thread only.
///
/// The helper itself is no part of this program, and nothing that registers it is installed with it: whoever
/// brings a helper brings its service file and the policy for whom it serves. Without one, what the user's own
/// rights cannot move stays where it is, and the user reads why.
class HelperService
{
public:
    virtual ~HelperService() = default;

    /// The registration status of the helper: not registered (0), enabled (1), requires approval (2), not found
    /// (3); what else the system may answer is passed on as it is. Asked anew with every call.
    virtual int status() const = 0;

    /// Registers the helper. The error in the system's words; absent when registration succeeded.
    virtual std::optional<QString> registerService() = 0;

    /// Opens the settings in which the user approves the helper.
    virtual void openApprovalSettings() = 0;

    /// Sends one request over a connection of its own and answers exactly once, when the helper replies or the
    /// connection breaks. There is no time limit.
    virtual QFuture<HelperAnswer> moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                                   const QString &bundleIdentifier) = 0;
};
