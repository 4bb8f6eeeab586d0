#include "BusConnection.h"

#include <future>
#include <thread>

namespace {

struct Opening
{
    std::shared_ptr<GDBusConnection> connection;
    QString error;
};

/// The system's words, without the name that the bus library puts in front of what others say.
QString wordsOf(GError *error)
{
    g_dbus_error_strip_remote_error(error);
    const auto words = QString::fromUtf8(error->message);
    g_error_free(error);
    return words;
}

/// Blocks. The end of the connection is announced in `context`.
Opening openBus(const QByteArray &address, const std::shared_ptr<GMainContext> &context,
                const std::shared_ptr<GCancellable> &cancellable)
{
    constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT
                                                             | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GError *error = nullptr;
    g_main_context_push_thread_default(context.get());
    auto *connection =
        g_dbus_connection_new_for_address_sync(address.constData(), flags, nullptr, cancellable.get(), &error);
    g_main_context_pop_thread_default(context.get());
    if (!connection)
        return {nullptr, wordsOf(error)};
    return {std::shared_ptr<GDBusConnection>(connection, &g_object_unref), {}};
}

/// Leaves the attempt behind on a thread of its own when it takes longer than `patience`: the library's first message
/// to the bus cannot be taken back.
Opening openInTime(const QByteArray &address, std::chrono::milliseconds patience,
                   const std::shared_ptr<GMainContext> &context, const std::shared_ptr<GCancellable> &cancellable)
{
    if (address.isEmpty())
        return {nullptr, QStringLiteral("There is no bus.")};
    std::packaged_task<Opening()> task([=] { return openBus(address, context, cancellable); });
    auto opening = task.get_future();
    std::thread(std::move(task)).detach();
    if (opening.wait_for(patience) == std::future_status::ready)
        return opening.get();
    g_cancellable_cancel(cancellable.get());
    return {nullptr, QStringLiteral("The bus does not answer.")};
}

} // namespace

BusConnection::BusConnection(const QByteArray &address, std::chrono::milliseconds patience,
                             const std::stop_token &stop)
    : m_context(g_main_context_new(), &g_main_context_unref), m_cancellable(g_cancellable_new(), &g_object_unref),
      m_onStop(stop, [context = m_context, cancellable = m_cancellable] {
          g_cancellable_cancel(cancellable.get());
          g_main_context_wakeup(context.get());
      })
{
    const auto opening = openInTime(address, patience, m_context, m_cancellable);
    m_connection = opening.connection;
    m_error = opening.error;
    if (m_connection)
        g_main_context_push_thread_default(m_context.get());
}

BusConnection::~BusConnection()
{
    if (!m_connection)
        return;
    for (const auto &subscription : m_subscriptions)
        g_dbus_connection_signal_unsubscribe(m_connection.get(), subscription->number);
    // What has been heard and not been dispatched would keep the connection open.
    while (g_main_context_iteration(m_context.get(), FALSE)) { }
    g_main_context_pop_thread_default(m_context.get());
}

BusAnswer BusConnection::call(const BusMethod &method, GVariant *arguments, const char *answerType,
                              std::chrono::milliseconds patience, GDBusCallFlags flags) const
{
    const std::shared_ptr<GVariant> sent(arguments ? g_variant_ref_sink(arguments) : nullptr, [](GVariant *value) {
        if (value)
            g_variant_unref(value);
    });
    if (!m_connection)
        return {nullptr, m_error};
    GError *error = nullptr;
    auto *values =
        g_dbus_connection_call_sync(m_connection.get(), method.service, method.path, method.interface, method.name,
                                    sent.get(), answerType ? G_VARIANT_TYPE(answerType) : nullptr, flags,
                                    static_cast<int>(patience.count()), m_cancellable.get(), &error);
    if (!values)
        return {nullptr, wordsOf(error)};
    return {std::shared_ptr<GVariant>(values, &g_variant_unref), {}};
}

void BusConnection::subscribe(const BusSignal &signal, Heard heard)
{
    if (!m_connection)
        return;
    const auto pass = [](GDBusConnection *, const char *, const char *, const char *, const char *,
                         GVariant *arguments, gpointer subscription) {
        static_cast<const Subscription *>(subscription)->heard(arguments);
    };
    auto &subscription =
        *m_subscriptions.emplace_back(std::make_unique<Subscription>(Subscription{std::move(heard), 0}));
    subscription.number = g_dbus_connection_signal_subscribe(
        m_connection.get(), signal.sender, signal.interface, signal.name, /*path*/ nullptr, signal.firstArgument,
        G_DBUS_SIGNAL_FLAGS_NONE, pass, &subscription, nullptr);
}

void BusConnection::listen(const std::function<bool()> &isDone) const
{
    if (!m_connection)
        return;
    while (!isDone() && !g_dbus_connection_is_closed(m_connection.get())
           && !g_cancellable_is_cancelled(m_cancellable.get()))
        g_main_context_iteration(m_context.get(), TRUE);
}
