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

/// The registration status of the helper, by the system's own numbers. The system may answer others, which are passed
/// on as they are.
enum class HelperStatus : int { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

/// The system's service management as the privileged helper needs it, and the one call to the helper. Called on the
/// main thread only, which none of it holds up: every answer is awaited.
///
/// The helper itself is no part of this program, and nothing that registers it is installed with it: whoever brings a
/// helper brings its service file and the policy for whom it serves. Without one, what the user's own rights cannot
/// move stays where it is, and the user reads why.
///
/// **To whoever writes a helper.** The paths and the identifier come from a program that runs with the user's rights,
/// so any program of that user can send them. What this program has checked protects the user from a mistake and
/// nobody from an attack; to a process that runs as root it is worth nothing. The helper itself has to see to it that
///
/// - the caller may ask: that the bus or polkit answers for it, by the caller's own credentials as the bus tells them,
///   not by what a message says of itself, and for the user in whose session it was asked;
/// - what is moved lies inside the areas that may be touched, `isInsidePermittedArea` in src/removal as they stand
///   there, with the home folder of the calling user as the account database names it, and never under /System: the
///   path is a text that may hold "..", be relative, empty or of any length;
/// - what it checks is what it moves: between a scan, a confirmation and the move, any folder on the way may have been
///   swapped for a link. A path that was checked and then used again is no check. Open the folders one after another
///   from the area down without following links (openat2 with RESOLVE_NO_SYMLINKS and RESOLVE_BENEATH), look at
///   what is held open, and move by that descriptor and the last name (renameat2 with RENAME_NOREPLACE);
/// - a link is moved as itself, and what lies behind it is not touched;
/// - the place that it moves to is the Trash of the calling user or one that only root can write to, nothing there is
///   replaced, and the user can find what was moved; nothing is deleted outright;
/// - the identifier is a text to be compared at most: no file name, no part of a command, no reason to trust a path;
/// - every path is answered for by itself, and the answer of success is given only for what was moved.
class HelperService
{
public:
    /// The helper's label, and the name of its service.
    static constexpr char helperLabel[] = "com.example.Tarnvale.Helper";

    virtual ~HelperService() = default;

    /// Asked anew with every call.
    virtual QFuture<HelperStatus> status() const = 0;

    /// Registers the helper. The error in the system's words; absent when registration succeeded.
    virtual QFuture<std::optional<QString>> registerService() = 0;

    /// Opens the settings in which the user approves the helper. Returns at once.
    virtual void openApprovalSettings() = 0;

    /// Sends one request over a connection of its own and answers exactly once, when the helper replies or the
    /// connection breaks or does not come about. There is no time limit for the reply.
    virtual QFuture<HelperAnswer> moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                                   const QString &bundleIdentifier) = 0;
};
