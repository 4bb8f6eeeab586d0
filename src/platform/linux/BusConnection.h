#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>
#include <gio/gio.h>
#include <memory>
#include <stop_token>
#include <vector>

/// What came of a call over a bus.
struct BusAnswer
{
    /// A tuple of the type that was asked for; null where there was no answer.
    std::shared_ptr<GVariant> values;
    /// Why there was none, in the system's words.
    QString error;
};

/// What is called: a method of an interface of an object of a program.
struct BusMethod
{
    const char *service;
    const char *path;
    const char *interface;
    const char *name;
};

/// Which signals are listened to. Null stands for any.
struct BusSignal
{
    const char *sender;
    const char *interface;
    const char *name;
    /// What the signal's first argument is, where that is a text.
    const char *firstArgument = nullptr;
};

/// A connection to a message bus that nobody else uses; it ends with the object. Everything here waits for the bus,
/// which may hang: used on one thread, which is not the main thread (see `onThreadOfItsOwn`).
class BusConnection
{
public:
    /// For a wait that only the other side ends.
    static constexpr std::chrono::milliseconds noLimit{G_MAXINT};

    /// Connects to the bus at `address`, which is empty where there is none. When that fails or takes longer than
    /// `patience`, every call is answered with the reason. Each wait ends soon after `stop` is requested.
    BusConnection(const QByteArray &address, std::chrono::milliseconds patience, const std::stop_token &stop = {});
    ~BusConnection();
    Q_DISABLE_COPY_MOVE(BusConnection)

    /// Calls `method` with the tuple `arguments`, which it takes over when it is floating. An answer of another type
    /// than `answerType` is none; null takes any.
    BusAnswer call(const BusMethod &method, GVariant *arguments, const char *answerType,
                   std::chrono::milliseconds patience, GDBusCallFlags flags = G_DBUS_CALL_FLAGS_NONE) const;

    using Heard = std::function<void(GVariant *arguments)>;
    /// Has `heard` called with the arguments, whatever their types, of the signals that are sent from now on. It is
    /// called while the connection listens.
    void subscribe(const BusSignal &signal, Heard heard);

    /// Waits for signals until `isDone`, which is asked after every signal, or until the connection is lost.
    void listen(const std::function<bool()> &isDone) const;

private:
    struct Subscription
    {
        Heard heard;
        guint number;
    };

    // What is waited for is dispatched here, on the thread of this object.
    std::shared_ptr<GMainContext> m_context;
    std::shared_ptr<GCancellable> m_cancellable;
    std::shared_ptr<GDBusConnection> m_connection;
    QString m_error;
    std::vector<std::unique_ptr<Subscription>> m_subscriptions;
    std::stop_callback<std::function<void()>> m_onStop;
};
