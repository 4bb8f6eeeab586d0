#pragma once

#include "HelperService.h"

/// The privileged helper as a service of the system bus: the name com.example.Tarnvale.Helper, and at
/// /com/example/Tarnvale/Helper the interface of the same name with one method,
///
///     moveItemsToTrash(in as paths, in s bundleIdentifier, out a{ss} messages)
///
/// What is registered there is a file in the bus's folder of system services, put in place by an administrator or
/// a package; the bus starts the helper when it is called.
///
/// - status: enabled (1) when the bus could start the helper or it runs, not found (3) when neither, not registered (0)
///   when the bus does not answer: registering then says why.
/// - registerService: lets the bus read its service files anew and asks it to start the helper. A file cannot be put
///   in place from here, as only an administrator may.
/// - openApprovalSettings: nothing, since no status asks for it. The bus's policy has approved the helper beforehand,
///   or the helper lets polkit ask the user while the request waits.
/// - moveItemsToTrash: the call above, without the 25 seconds after which Qt would give up.
///
/// The first two wait for the bus, which is a process of this computer and answers in less than a millisecond;
/// after one second they give up, and the answer is that of a bus that does not answer.
class LinuxHelperService : public HelperService
{
public:
    /// `busAddress` names another bus than the system's, for tests.
    explicit LinuxHelperService(QString busAddress = {});

    int status() const override;
    std::optional<QString> registerService() override;
    void openApprovalSettings() override { }

    /// A path that is not UTF-8 cannot be a text of the bus: it is not sent, and the answer has nothing for it;
    /// when no path is left, nobody is called. A reply without any content reports on nothing. One of another type
    /// than a{ss} is an error as a whole, since the helper then speaks another language than we do; keys that were
    /// not sent are left out.
    QFuture<HelperAnswer> moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                           const QString &bundleIdentifier) override;

private:
    QString m_busAddress;
};
