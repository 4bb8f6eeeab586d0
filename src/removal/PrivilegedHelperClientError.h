#pragma once

#include <QString>

/// Why a call to the privileged helper failed as a whole.
struct PrivilegedHelperClientError
{
    enum Case { helperNotFound, helperRequiresApplicationsFolder, connectionFailed, approvalRequired };

    Case code;
    /// What is said of this one failure; empty for `approvalRequired`.
    QString message;

    /// What the user is shown: a fixed beginning and the message. In Polish, whatever the language of the
    /// interface.
    QString description() const;

    bool operator==(const PrivilegedHelperClientError &) const = default;
};
