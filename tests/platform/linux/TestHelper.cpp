#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QTimer>

#include <unistd.h>

namespace {

using Messages = QMap<QString, QString>;

/// A privileged helper that moves nothing and answers as its command line says.
class TestHelper : public QDBusVirtualObject
{
public:
    explicit TestHelper(QString manner) : m_manner(std::move(manner)) { }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &request, const QDBusConnection &connection) override
    {
        const auto paths = request.arguments().value(0).toStringList();
        if (request.member() != QLatin1String("moveItemsToTrash") || request.signature() != QLatin1String("ass"))
            return false;
        if (m_manner == QLatin1String("dies"))
            ::_exit(1);
        if (m_manner == QLatin1String("refuses"))
            return connection.send(request.createErrorReply(QDBusError::AccessDenied, "Not for you"));
        if (m_manner == QLatin1String("slow"))
            QTimer::singleShot(30'000, Qt::PreciseTimer, this,
                               [=, this] { connection.send(request.createReply(answer(paths))); });
        if (m_manner == QLatin1String("silent") || m_manner == QLatin1String("slow"))
            return true;
        if (m_manner == QLatin1String("nothing"))
            return connection.send(request.createReply());
        return connection.send(request.createReply(answer(paths)));
    }

private:
    QVariant answer(const QStringList &paths) const
    {
        if (m_manner == QLatin1String("numbers"))
            return QVariantMap{{paths.value(0), 1}};
        if (m_manner == QLatin1String("text"))
            return QStringLiteral("moved");
        Messages messages;
        if (m_manner == QLatin1String("foreign"))
            messages.insert("/etc/passwd", QString());
        if (m_manner != QLatin1String("empty"))
            messages.insert(paths.value(0), QString());
        if (m_manner == QLatin1String("full") || m_manner == QLatin1String("slow"))
            messages.insert(paths.value(1), "It is in use.");
        return QVariant::fromValue(messages);
    }

    QString m_manner;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    qDBusRegisterMetaType<Messages>();
    TestHelper helper(application.arguments().value(1));
    auto bus = QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_STARTER_ADDRESS"), "bus");
    // The bus ends it, or the end of the bus.
    bus.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", &application,
                SLOT(quit()));
    if (!bus.registerVirtualObject("/com/example/Tarnvale/Helper", &helper)
        || !bus.registerService("com.example.Tarnvale.Helper"))
        return 1;
    return QCoreApplication::exec();
}
