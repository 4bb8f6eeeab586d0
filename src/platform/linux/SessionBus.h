#pragma once

#include <QDBusConnection>
#include <QString>

/// A connection of its own to the bus at `address` or, where that is empty, to the user's session bus, which is
/// not started where it does not run: not connected then. Whoever opens it ends it with `disconnectFromBus`.
QDBusConnection openSessionBus(const QString &address);
