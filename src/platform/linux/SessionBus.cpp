#include "SessionBus.h"

#include <QFileInfo>
#include <QUuid>

namespace {

/// Where the user's session bus listens; empty when none runs. The bus library left alone would start one.
QString sessionBusAddress()
{
    auto address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const auto runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const auto socket = runtimeFolder + QStringLiteral("/bus");
    return !runtimeFolder.isEmpty() && QFileInfo::exists(socket) ? QStringLiteral("unix:path=") + socket
                                                                 : QString();
}

} // namespace

QDBusConnection openSessionBus(const QString &address)
{
    const auto name = QUuid::createUuid().toString();
    const auto bus = address.isEmpty() ? sessionBusAddress() : address;
    return bus.isEmpty() ? QDBusConnection(name) : QDBusConnection::connectToBus(bus, name);
}
