#include "LinuxHelperService.h"

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMap>
#include <QPromise>
#include <QUuid>

#include <chrono>
#include <functional>
#include <future>
#include <limits>
#include <thread>

namespace {

using Messages = QMap<QString, QString>;

// The platform's own numbers.
constexpr int notRegistered = 0;
constexpr int enabled = 1;
constexpr int notFound = 3;

// Given to one call to the bus and, as even connecting to a bus that hangs waits, to all of an answer.
constexpr std::chrono::milliseconds patienceForBus{1000};

QString helperName()
{
    return QStringLiteral("com.example.Tarnvale.Helper");
}

/// A connection that nobody else uses, closed with this object.
class BusConnection
{
public:
    /// To the system bus when `address` is empty.
    explicit BusConnection(const QString &address)
        : m_name(QUuid::createUuid().toString()),
          m_connection(address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, m_name)
                                         : QDBusConnection::connectToBus(address, m_name))
    {
    }
    ~BusConnection() { QDBusConnection::disconnectFromBus(m_name); }
    Q_DISABLE_COPY_MOVE(BusConnection)

    const QDBusConnection &connection() const { return m_connection; }

    /// A question to the bus itself.
    QDBusMessage ask(const QString &method, const QVariantList &arguments = {}) const
    {
        const auto bus = QStringLiteral("org.freedesktop.DBus");
        auto message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
        message.setArguments(arguments);
        return m_connection.call(message, QDBus::Block, static_cast<int>(patienceForBus.count()));
    }

private:
    QString m_name;
    QDBusConnection m_connection;
};

/// The system's words for a failure, which some failures lack.
QString words(const QDBusError &error)
{
    return error.message().isEmpty() ? error.name() : error.message();
}

int statusOnBus(const QString &address)
{
    const BusConnection bus(address);
    const auto activatable = bus.ask(QStringLiteral("ListActivatableNames"));
    if (activatable.type() != QDBusMessage::ReplyMessage)
        return notRegistered;
    if (activatable.arguments().value(0).toStringList().contains(helperName()))
        return enabled;
    const auto owned = bus.ask(QStringLiteral("NameHasOwner"), {helperName()});
    return owned.arguments().value(0).toBool() ? enabled : notFound;
}

std::optional<QString> registerOnBus(const QString &address)
{
    const BusConnection bus(address);
    if (!bus.connection().isConnected())
        return words(bus.connection().lastError());
    // Where this is not allowed, the bus has noticed a new file by itself.
    bus.ask(QStringLiteral("ReloadConfig"));
    const auto reply = bus.ask(QStringLiteral("StartServiceByName"), {helperName(), 0U});
    return reply.type() == QDBusMessage::ErrorMessage ? std::optional(words(QDBusError(reply))) : std::nullopt;
}

/// What `question` answers, or `otherwise` when it takes longer than the bus is given: it is then left behind on
/// its thread.
template <typename Answer> Answer inTime(std::function<Answer()> question, const Answer &otherwise)
{
    std::packaged_task<Answer()> task(std::move(question));
    auto answer = task.get_future();
    std::thread(std::move(task)).detach();
    return answer.wait_for(patienceForBus) == std::future_status::ready ? answer.get() : otherwise;
}

/// Those of the paths that can be texts of the bus.
QStringList sendable(const QList<QByteArray> &paths)
{
    QStringList texts;
    for (const auto &path : paths) {
        const auto text = QString::fromUtf8(path);
        if (text.toUtf8() == path)
            texts.append(text);
    }
    return texts;
}

HelperAnswer answerTo(const QDBusPendingCall &call, const QStringList &sentPaths)
{
    if (call.isError())
        return {{}, words(call.error())};
    if (call.reply().signature().isEmpty())
        return {};
    const QDBusPendingReply<Messages> reply(call);
    if (reply.isError())
        return {{}, words(reply.error())};

    HelperAnswer answer;
    const auto messages = reply.value();
    for (const auto &path : sentPaths) {
        const auto message = messages.constFind(path);
        if (message != messages.constEnd())
            answer.messages.insert(path.toUtf8(), *message);
    }
    return answer;
}

} // namespace

LinuxHelperService::LinuxHelperService(QString busAddress) : m_busAddress(std::move(busAddress))
{
    qDBusRegisterMetaType<Messages>();
}

int LinuxHelperService::status() const
{
    return inTime<int>([address = m_busAddress] { return statusOnBus(address); }, notRegistered);
}

std::optional<QString> LinuxHelperService::registerService()
{
    return inTime<std::optional<QString>>([address = m_busAddress] { return registerOnBus(address); },
                                          QStringLiteral("The system bus does not answer."));
}

QFuture<HelperAnswer> LinuxHelperService::moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                                           const QString &bundleIdentifier)
{
    QPromise<HelperAnswer> promise;
    auto future = promise.future();
    promise.start();
    const auto answer =
        [promise = std::make_shared<QPromise<HelperAnswer>>(std::move(promise))](const HelperAnswer &given) {
            promise->addResult(given);
            promise->finish();
        };

    const auto paths = sendable(standardizedPaths);
    if (paths.isEmpty()) {
        answer({});
        return future;
    }
    auto bus = std::make_shared<BusConnection>(m_busAddress);
    if (!bus->connection().isConnected()) {
        answer({{}, words(bus->connection().lastError())});
        return future;
    }

    auto request = QDBusMessage::createMethodCall(helperName(), QStringLiteral("/com/example/Tarnvale/Helper"),
                                                  helperName(), QStringLiteral("moveItemsToTrash"));
    request.setArguments({paths, bundleIdentifier});
    request.setInteractiveAuthorizationAllowed(true);
    constexpr auto noTimeLimit = std::numeric_limits<int>::max();
    auto *watcher = new QDBusPendingCallWatcher(bus->connection().asyncCall(request, noTimeLimit));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [=, bus = std::move(bus)]() mutable {
        answer(answerTo(*watcher, paths));
        bus.reset();
        watcher->deleteLater();
    });
    return future;
}
