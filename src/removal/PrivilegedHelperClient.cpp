#include "PrivilegedHelperClient.h"

#include "BundleReader.h"
#include "FileSystem.h"
#include "HelperService.h"

#include <QCoro/QCoroFuture>

#include <algorithm>

using Error = PrivilegedHelperClientError;

namespace {

// The numbers of the platform's service management.
enum ServiceStatus { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

constexpr const char *acceptedFolders[] = {"/Applications/", "/Users/Shared/Applications/"};

QList<QByteArray> pathsThatAreText(const QList<Url> &items)
{
    QList<QByteArray> paths;
    for (const auto &item : items) {
        const auto path = item.standardizedPath();
        if (QString::fromUtf8(path).toUtf8() == path)
            paths.append(path);
    }
    return paths;
}

} // namespace

PrivilegedHelperClient::PrivilegedHelperClient(const FileSystem &fileSystem, const BundleReader &bundleReader,
                                               HelperService &service)
    : m_fileSystem(fileSystem), m_bundleReader(bundleReader), m_service(service)
{
}

QCoro::Task<HelperReply> PrivilegedHelperClient::moveItemsToTrash(QList<Url> items, QString bundleIdentifier)
{
    const auto paths = pathsThatAreText(items);
    if (paths.isEmpty())
        co_return HelperReply{};
    if (const auto error = ensureHelperReady())
        co_return HelperReply{{}, error->description()};
    auto request = sendMoveRequest(paths, bundleIdentifier);
    co_return co_await request;
}

std::optional<Error> PrivilegedHelperClient::ensureHelperReady()
{
    if (auto error = validateHelperInstallation())
        return error;
    switch (m_service.status()) {
    case requiresApproval:
        return askForApproval();
    case enabled:
        return std::nullopt;
    case notRegistered:
    case notFound:
        return registerHelper();
    default:
        return Error{Error::connectionFailed,
                     QStringLiteral("Nieznany status SMAppService dla helpera administratora.")};
    }
}

std::optional<Error> PrivilegedHelperClient::validateHelperInstallation() const
{
    const auto bundle = m_bundleReader.mainBundleUrl().standardized();
    if (auto error = validateApplicationLocation(bundle))
        return error;

    const auto isFile = [&](const Url &url) { return m_fileSystem.exists(url) && !m_fileSystem.isDirectory(url); };
    const auto notFoundError = [](const QString &reason, const Url &url) {
        return Error{Error::helperNotFound, reason + url.displayPath()};
    };
    const auto executable = bundle / helperExecutablePath;
    if (!isFile(executable))
        return notFoundError(QStringLiteral("Oczekiwana ścieżka helpera: "), executable);
    if (!m_fileSystem.isExecutable(executable))
        return notFoundError(QStringLiteral("Helper istnieje, ale nie jest plikiem wykonywalnym: "), executable);
    const auto daemonPlist = bundle / helperDaemonPlistPath;
    if (!isFile(daemonPlist))
        return notFoundError(QStringLiteral("Oczekiwana ścieżka pliku LaunchDaemon: "), daemonPlist);
    return std::nullopt;
}

std::optional<Error> PrivilegedHelperClient::validateApplicationLocation(const Url &bundle)
{
    const auto path = bundle.standardizedPath();
    if (std::ranges::any_of(acceptedFolders, [&](const char *folder) { return path.startsWith(folder); }))
        return std::nullopt;
    return Error{Error::helperRequiresApplicationsFolder,
                 QStringLiteral("Uruchom aplikację z folderu /Applications. Aktualna lokalizacja: ")
                     + QString::fromUtf8(path)
                     + QStringLiteral(". LaunchDaemon z uprawnieniami administratora nie powinien być "
                                      "rejestrowany z DerivedData, Downloads ani Desktop.")};
}

std::optional<Error> PrivilegedHelperClient::registerHelper()
{
    const auto registrationError = m_service.registerService();
    const auto status = m_service.status();
    if (status == enabled)
        return std::nullopt;
    if (status == requiresApproval)
        return askForApproval();

    const auto number = QString::number(status);
    if (registrationError) {
        return Error{Error::connectionFailed, QStringLiteral("Rejestracja helpera nie powiodła się. Status: ")
                                                  + number + QStringLiteral(". Błąd: ") + *registrationError};
    }
    if (status == notRegistered || status == notFound) {
        return Error{Error::connectionFailed,
                     QStringLiteral("Helper został znaleziony w paczce aplikacji, ale macOS nie zarejestrował "
                                    "usługi. Status: ")
                         + number + QStringLiteral(".")};
    }
    return Error{Error::connectionFailed, QStringLiteral("Nieznany status SMAppService po rejestracji helpera: ")
                                              + number + QStringLiteral(".")};
}

QCoro::Task<HelperReply> PrivilegedHelperClient::sendMoveRequest(QList<QByteArray> standardizedPaths,
                                                                 QString bundleIdentifier)
{
    const auto request = m_service.moveItemsToTrash(standardizedPaths, bundleIdentifier);
    const auto answer = co_await request;
    HelperReply reply{answer.messages, std::nullopt};
    if (answer.connectionError) {
        const Error error{Error::connectionFailed, *answer.connectionError};
        reply.errorDescription = error.description();
    }
    co_return reply;
}

PrivilegedHelperClientError PrivilegedHelperClient::askForApproval()
{
    m_service.openApprovalSettings();
    return {Error::approvalRequired, {}};
}
