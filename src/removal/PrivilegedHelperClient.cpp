#include "PrivilegedHelperClient.h"

#include "BundleReader.h"
#include "FairTurn.h"
#include "FileNames.h"
#include "FileSystem.h"
#include "HelperService.h"

#include <QCoro/QCoroFuture>

#include <algorithm>

using Error = PrivilegedHelperClientError;

namespace {

constexpr const char *acceptedFolders[] = {"/Applications/", "/Users/Shared/Applications/"};

QCoro::Task<QList<QByteArray>> pathsThatAreText(QList<Url> items)
{
    QList<QByteArray> paths;
    QElapsedTimer clock;
    const FairTurn turn(clock);
    for (const auto &item : std::as_const(items)) {
        co_await turn;
        const auto path = item.standardizedPath();
        if (decodedFileName(path))
            paths.append(path);
    }
    co_return paths;
}

} // namespace

PrivilegedHelperClient::PrivilegedHelperClient(const FileSystem &fileSystem, const BundleReader &bundleReader,
                                               HelperService &service)
    : m_fileSystem(fileSystem), m_bundleReader(bundleReader), m_service(service)
{
}

QCoro::Task<HelperReply> PrivilegedHelperClient::moveItemsToTrash(QList<Url> items, QString bundleIdentifier)
{
    auto reading = pathsThatAreText(items);
    const auto paths = co_await reading;
    if (paths.isEmpty())
        co_return HelperReply{};
    auto preparation = ensureHelperReady();
    const auto error = co_await preparation;
    if (error)
        co_return HelperReply{{}, error->description()};
    auto request = sendMoveRequest(paths, bundleIdentifier);
    co_return co_await request;
}

const QByteArray &PrivilegedHelperClient::helperExecutablePath()
{
    static const auto path = QByteArray("Contents/Library/HelperTools/") + HelperService::helperLabel;
    return path;
}

const QByteArray &PrivilegedHelperClient::helperDaemonPlistPath()
{
    static const auto path = QByteArray("Contents/Library/LaunchDaemons/") + HelperService::helperLabel + ".plist";
    return path;
}

QCoro::Task<std::optional<Error>> PrivilegedHelperClient::ensureHelperReady()
{
    if (auto error = validateHelperInstallation())
        co_return error;
    const auto query = m_service.status();
    switch (co_await query) {
    case HelperStatus::requiresApproval:
        co_return askForApproval();
    case HelperStatus::enabled:
        co_return std::nullopt;
    case HelperStatus::notRegistered:
    case HelperStatus::notFound:
        break;
    default:
        co_return Error{Error::connectionFailed,
                        QStringLiteral("Nieznany status SMAppService dla helpera administratora.")};
    }
    auto registration = registerHelper();
    co_return co_await registration;
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
    const auto executable = bundle / helperExecutablePath();
    if (!isFile(executable))
        return notFoundError(QStringLiteral("Oczekiwana ścieżka helpera: "), executable);
    if (!m_fileSystem.isExecutable(executable))
        return notFoundError(QStringLiteral("Helper istnieje, ale nie jest plikiem wykonywalnym: "), executable);
    const auto daemonPlist = bundle / helperDaemonPlistPath();
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

QCoro::Task<std::optional<Error>> PrivilegedHelperClient::registerHelper()
{
    const auto registration = m_service.registerService();
    const auto registrationError = co_await registration;
    const auto query = m_service.status();
    const auto status = co_await query;
    if (status == HelperStatus::enabled)
        co_return std::nullopt;
    if (status == HelperStatus::requiresApproval)
        co_return askForApproval();

    const auto number = QString::number(static_cast<int>(status));
    if (registrationError) {
        co_return Error{Error::connectionFailed, QStringLiteral("Rejestracja helpera nie powiodła się. Status: ")
                                                     + number + QStringLiteral(". Błąd: ") + *registrationError};
    }
    if (status == HelperStatus::notRegistered || status == HelperStatus::notFound) {
        co_return Error{Error::connectionFailed,
                        QStringLiteral("Helper został znaleziony w paczce aplikacji, ale macOS nie zarejestrował "
                                       "usługi. Status: ")
                            + number + QStringLiteral(".")};
    }
    co_return Error{Error::connectionFailed,
                    QStringLiteral("Nieznany status SMAppService po rejestracji helpera: ") + number
                        + QStringLiteral(".")};
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
