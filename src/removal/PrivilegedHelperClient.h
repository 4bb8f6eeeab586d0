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
    /// The daemon's label and the name of its service.
    static constexpr char helperLabel[] = "com.example.Tarnvale.Helper";
    /// Both relative to the application's bundle.
    static constexpr char helperExecutablePath[] = "Contents/Library/HelperTools/com.example.Tarnvale.Helper";
    static constexpr char helperDaemonPlistPath[] =
        "Contents/Library/LaunchDaemons/com.example.Tarnvale.Helper.plist";

    PrivilegedHelperClient(const FileSystem &fileSystem, const BundleReader &bundleReader, HelperService &service);

    /// Makes the daemon ready, then sends it one request with the items' standardised paths. A path that is not
    /// UTF-8 cannot be sent and has no entry in the reply; nothing is asked of the system when none can be sent.
    QCoro::Task<HelperReply> moveItemsToTrash(QList<Url> items, QString bundleIdentifier) override;

    // The steps of a call. Each answers why it failed, and nothing when it succeeded.

    /// The daemon is in its place, our bundle is where it may be registered from, and its service is enabled.
    std::optional<PrivilegedHelperClientError> ensureHelperReady();
    std::optional<PrivilegedHelperClientError> validateHelperInstallation() const;
    static std::optional<PrivilegedHelperClientError> validateApplicationLocation(const Url &bundle);
    std::optional<PrivilegedHelperClientError> registerHelper();

    /// One connection, one request, one reply.
    QCoro::Task<HelperReply> sendMoveRequest(QList<QByteArray> standardizedPaths, QString bundleIdentifier);

private:
    PrivilegedHelperClientError askForApproval();

    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    HelperService &m_service;
};
