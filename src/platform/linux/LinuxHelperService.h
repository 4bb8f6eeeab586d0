#pragma once

#include "HelperService.h"

/// The privileged helper as a service of the system bus: its label is a name there, the object is the label as a path
/// (/com/example/Tarnvale/Helper), and the interface has the label's name and one method,
///
///     moveItemsToTrash(in as paths, in s bundleIdentifier, out a{ss} messages)
///
/// What is registered there is a file in the bus's folder of system services, put in place by an administrator or
/// a package; the bus starts the helper when it is called.
///
/// - status: enabled (1) when the bus could start the helper or it runs, not found (3) when neither, not registered (0)
///   when the bus does not answer, or answers something else than was asked: registering then says why.
/// - registerService: lets the bus read its service files anew and asks it to start the helper. A file cannot be put
///   in place from here, as only an administrator may.
/// - openApprovalSettings: nothing, since no status asks for it. The bus's policy has approved the helper beforehand,
///   or the helper lets polkit ask the user while the request waits.
/// - moveItemsToTrash: the call above, however long the reply takes.
///
/// Connecting to the bus and each question about the bus itself, a process of this computer that answers in less than
/// a millisecond, may take one second; starting the helper as long as the bus gives it, which is 25 seconds unless an
/// administrator has set it otherwise. What takes longer has no answer.
///
/// Nobody waits for a bus that hangs: each call works on a thread of its own, which is left behind when the program
/// ends.
class LinuxHelperService : public HelperService
{
public:
    /// `busAddress` names another bus than the system's.
    explicit LinuxHelperService(QByteArray busAddress = {});

    QFuture<HelperStatus> status() const override;
    QFuture<std::optional<QString>> registerService() override;
    void openApprovalSettings() override { }

    /// A path that is not UTF-8 cannot be a text of the bus: it is not sent, and the answer has nothing for it;
    /// when no path is left, nobody is called. A reply without any content reports on nothing. One of another type
    /// than a{ss} is an error as a whole, since the helper then speaks another language than we do; keys that were
    /// not sent are left out.
    QFuture<HelperAnswer> moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                           const QString &bundleIdentifier) override;

private:
    QByteArray m_busAddress;
};
