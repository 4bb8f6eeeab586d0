#include "LinuxFolderChooser.h"

#include "ReadyFuture.h"
#include "SessionBus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QFutureWatcher>

namespace {

const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto chooserInterface = QStringLiteral("org.freedesktop.portal.FileChooser");

/// Given to the portal until it says what it is; the bus may have to start it first. The user looks at a button
/// meanwhile.
constexpr int patienceForPortal = 3000;

QVariantMap dialogOptions(const QString &prompt)
{
    // A path is bytes here, and ends with a zero.
    const auto home = QFile::encodeName(QDir::homePath()) + '\0';
    return {
        {QStringLiteral("accept_label"), prompt}, {QStringLiteral("current_folder"), home},
        {QStringLiteral("directory"), true},      {QStringLiteral("modal"), true},
        {QStringLiteral("multiple"), false},
    };
}

template <typename Finished> void whenFinished(const QDBusPendingCall &call, QObject *context, Finished finished)
{
    auto *watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, finished] {
        finished(*watcher);
        watcher->deleteLater();
    });
}

} // namespace

LinuxFolderChooser::LinuxFolderChooser(FolderChooser &otherwise, std::function<QString()> parentWindow,
                                       QString busAddress)
    : m_otherwise(otherwise), m_parentWindow(std::move(parentWindow)), m_busAddress(std::move(busAddress))
{
}

LinuxFolderChooser::~LinuxFolderChooser()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

QFuture<std::optional<Url>> LinuxFolderChooser::chooseFolder(const QString &title, const QString &prompt)
{
    if (m_step != Step::idle)
        return readyFuture(std::optional<Url>());

    m_promise = {};
    m_promise.start();
    auto future = m_promise.future();
    m_step = Step::asking;
    m_bus = openSessionBus(m_busAddress);
    if (m_bus.isConnected())
        askForVersion(title, prompt);
    else
        chooseOtherwise(title, prompt);
    return future;
}

void LinuxFolderChooser::askForVersion(const QString &title, const QString &prompt)
{
    constexpr uint firstWithFolders = 3;
    auto request = QDBusMessage::createMethodCall(
        portalService, portalPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    request.setArguments({chooserInterface, QStringLiteral("version")});
    whenFinished(m_bus.asyncCall(request, patienceForPortal), this, [=, this](const QDBusPendingCall &call) {
        const QDBusPendingReply<QDBusVariant> version(call);
        if (version.isError() || version.value().variant().toUInt() < firstWithFolders)
            chooseOtherwise(title, prompt);
        else
            openDialog(title, prompt);
    });
}

void LinuxFolderChooser::openDialog(const QString &title, const QString &prompt)
{
    // Before the request, so that no answer comes too early.
    m_bus.connect(portalService, {}, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"),
                  this, SLOT(takeResponse(QDBusMessage)));
    m_bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                  QStringLiteral("Disconnected"), this, SLOT(takeLossOfPortal()));
    m_bus.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                  QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), {portalService}, {},
                  this, SLOT(takeLossOfPortal()));

    auto request =
        QDBusMessage::createMethodCall(portalService, portalPath, chooserInterface, QStringLiteral("OpenFile"));
    request.setArguments({m_parentWindow(), title, dialogOptions(prompt)});
    whenFinished(m_bus.asyncCall(request), this, [=, this](const QDBusPendingCall &call) {
        if (m_step != Step::asking)
            return;
        if (call.isError())
            chooseOtherwise(title, prompt);
        else
            m_step = Step::open;
    });
}

void LinuxFolderChooser::takeResponse(const QDBusMessage &response)
{
    // 0: chosen, 1: cancelled, 2: ended in some other way.
    constexpr uint chosen = 0;
    const auto arguments = response.arguments();
    const auto results = qdbus_cast<QVariantMap>(arguments.value(1));
    const auto uris = results.value(QStringLiteral("uris")).toStringList();
    const bool isChosen = arguments.value(0).toUInt() == chosen && uris.size() == 1;
    answer(isChosen ? Url::fromUri(uris.first().toUtf8()) : std::nullopt);
}

void LinuxFolderChooser::takeLossOfPortal()
{
    // Before the dialog is open, the request fails and is dealt with there.
    if (m_step == Step::open)
        answer(std::nullopt);
}

void LinuxFolderChooser::chooseOtherwise(const QString &title, const QString &prompt)
{
    m_step = Step::otherwise;
    auto *watcher = new QFutureWatcher<std::optional<Url>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        answer(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(m_otherwise.chooseFolder(title, prompt));
}

void LinuxFolderChooser::answer(const std::optional<Url> &folder)
{
    if (m_step == Step::idle)
        return;
    m_step = Step::idle;
    // Closes what is still open of the dialog.
    QDBusConnection::disconnectFromBus(m_bus.name());
    m_promise.addResult(folder);
    m_promise.finish();
}
