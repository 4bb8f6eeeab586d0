#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QDir>
#include <QTimer>

#include <unistd.h>
#include <utility>

namespace {

using Messages = QMap<QString, QString>;

/// A privileged helper that answers as its command line says. It moves nothing, except in the manner "moves".
class TestHelper : public QDBusVirtualObject
{
public:
    /// `disk` is the folder of the disk that paths are on.
    TestHelper(QString manner, QString disk) : m_manner(std::move(manner)), m_disk(std::move(disk)) { }

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
        if (m_manner == QLatin1String("slow")) {
            QTimer::singleShot(30'000, Qt::PreciseTimer, this,
                               [=] { connection.send(request.createReply(answer(paths))); });
            return true;
        }
        if (m_manner == QLatin1String("moves"))
            return connection.send(
                request.createReply(QVariant::fromValue(move(paths, request.arguments().value(1)))));
        return connection.send(request.createReply(answer(paths)));
    }

private:
    /// By rules of its own, as a helper has: moves what has the application's identifier for a name, refuses what
    /// is a group's, and says nothing of the rest.
    Messages move(const QStringList &paths, const QVariant &identifier) const
    {
        const auto trash = m_disk + "/private/var/root/.Trash/";
        QDir().mkpath(trash);
        Messages messages;
        for (const auto &path : paths) {
            const auto name = path.section(u'/', -1);
            if (name == identifier)
                messages.insert(path, QFile::rename(m_disk + path, trash + name) ? "" : "It stays.");
            else if (name.startsWith("group."))
                messages.insert(path, "Other programs share it.");
        }
        return messages;
    }

    static QVariant answer(const QStringList &paths)
    {
        return QVariant::fromValue(Messages{{paths.value(0), {}}, {paths.value(1), "It is in use."}});
    }

    QString m_manner;
    QString m_disk;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    qDBusRegisterMetaType<Messages>();
    TestHelper helper(application.arguments().value(1), application.arguments().value(2));
    auto bus = QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_STARTER_ADDRESS"), "bus");
    // The bus ends it, or the end of the bus.
    bus.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", &application,
                SLOT(quit()));
    if (!bus.registerVirtualObject("/com/example/Tarnvale/Helper", &helper)
        || !bus.registerService("com.example.Tarnvale.Helper"))
        return 1;
    return QCoreApplication::exec();
}
