#include "SessionBus.h"

#include <QFileInfo>

QByteArray sessionBusAddress()
{
    auto address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const auto runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
    const auto socket = runtimeFolder + "/bus";
    return !runtimeFolder.isEmpty() && QFileInfo::exists(QFile::decodeName(socket)) ? "unix:path=" + socket
                                                                                    : QByteArray();
}
