#pragma once

#include "PrivilegedHelper.h"
#include "PrivilegedHelperClientError.h"

#include <optional>

class BundleReader;
class FileSystem;
class HelperService;

/// The client of the privileged helper daemon: makes sure that it is installed and enabled, and sends it one
/// request a call. Keeps nothing between calls.
class PrivilegedHelperClient : public PrivilegedHelper
{
public:
    /// Both relative to the application's bundle.
    static const QByteArray &helperExecutablePath();
    static const QByteArray &helperDaemonPlistPath();

    PrivilegedHelperClient(const FileSystem &fileSystem, const BundleReader &bundleReader, HelperService &service);

    /// Makes the daemon ready, then sends it one request with the items' standardised paths. A path that is not
    /// UTF-8 cannot be sent and has no entry in the reply; nothing is asked of the system when none can be sent.
    QCoro::Task<HelperReply> moveItemsToTrash(QList<Url> items, QString bundleIdentifier) override;

    // The steps of a call. Each answers why it failed, and nothing when it succeeded.

    /// The daemon is in its place, our bundle is where it may be registered from, and its service is enabled.
    QCoro::Task<std::optional<PrivilegedHelperClientError>> ensureHelperReady();
    std::optional<PrivilegedHelperClientError> validateHelperInstallation() const;
    static std::optional<PrivilegedHelperClientError> validateApplicationLocation(const Url &bundle);
    QCoro::Task<std::optional<PrivilegedHelperClientError>> registerHelper();

    /// One connection, one request, one reply.
    QCoro::Task<HelperReply> sendMoveRequest(QList<QByteArray> standardizedPaths, QString bundleIdentifier);

private:
    PrivilegedHelperClientError askForApproval();

    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    HelperService &m_service;
};
