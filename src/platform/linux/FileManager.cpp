#include "FileManager.h"

#include "BusConnection.h"
#include "OwnThread.h"
#include "SessionBus.h"
#include "Url.h"

namespace {

// The bus may have to start the file manager first; this is what its library gives every call.
constexpr std::chrono::seconds patienceForFileManager{25};

bool showItem(const QByteArray &bus, const Url &item)
{
    constexpr BusMethod showItems{"org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                  "org.freedesktop.FileManager1", "ShowItems"};
    const auto uri = item.toUri();
    const char *const uris[] = {uri.constData(), nullptr};
    const BusConnection connection(bus, patienceForFileManager);
    const auto shown =
        connection.call(showItems, g_variant_new("(^ass)", uris, ""), nullptr, patienceForFileManager);
    return shown.values != nullptr;
}

void openFolder(const Url &folder)
{
    // The library opens a connection of its own on the way, which would end the program if the bus went away meanwhile.
    auto *connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (connection)
        g_dbus_connection_set_exit_on_close(connection, FALSE);
    g_app_info_launch_default_for_uri(folder.toUri().constData(), nullptr, nullptr);
    g_clear_object(&connection);
}

} // namespace

void showInFileManager(const QByteArray &path)
{
    onThreadOfItsOwn([bus = sessionBusAddress(), item = Url(path)] {
        if (!showItem(bus, item))
            openFolder(item.parent());
    });
}
