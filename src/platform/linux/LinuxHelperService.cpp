#include "LinuxHelperService.h"

#include "BusConnection.h"
#include "OwnThread.h"
#include "ReadyFuture.h"

#include <QSet>

#include <algorithm>

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patienceForBus = 1s;
// Longer than the bus's own limit, so that it is the bus who says why.
constexpr std::chrono::milliseconds patienceForStart = 30s;

constexpr auto label = HelperService::helperLabel;

/// A question to the bus itself.
BusAnswer ask(const BusConnection &bus, const char *question, GVariant *arguments, const char *answerType,
              std::chrono::milliseconds patience = patienceForBus)
{
    constexpr auto service = "org.freedesktop.DBus";
    return bus.call({service, "/org/freedesktop/DBus", service, question}, arguments, answerType, patience);
}

bool containsLabel(GVariant *listOfNames)
{
    const char **names = nullptr;
    g_variant_get(listOfNames, "(^a&s)", &names);
    const bool isContained = g_strv_contains(names, label);
    g_free(names);
    return isContained;
}

HelperStatus statusOnBus(const QByteArray &address)
{
    const BusConnection bus(address, patienceForBus);
    const auto activatable = ask(bus, "ListActivatableNames", nullptr, "(as)");
    if (!activatable.values)
        return HelperStatus::notRegistered;
    if (containsLabel(activatable.values.get()))
        return HelperStatus::enabled;
    const auto owned = ask(bus, "NameHasOwner", g_variant_new("(s)", label), "(b)");
    if (!owned.values)
        return HelperStatus::notRegistered;
    gboolean isOwned = FALSE;
    g_variant_get(owned.values.get(), "(b)", &isOwned);
    return isOwned ? HelperStatus::enabled : HelperStatus::notFound;
}

std::optional<QString> registerOnBus(const QByteArray &address)
{
    const BusConnection bus(address, patienceForBus);
    // Where this is not allowed, the bus has noticed a new file by itself.
    ask(bus, "ReloadConfig", nullptr, nullptr);
    const auto start =
        ask(bus, "StartServiceByName", g_variant_new("(su)", label, guint32(0)), "(u)", patienceForStart);
    return start.values ? std::nullopt : std::optional(start.error);
}

bool isText(const QByteArray &bytes)
{
    return g_utf8_validate_len(bytes.constData(), static_cast<gsize>(bytes.size()), nullptr);
}

GVariant *requestOf(const QList<QByteArray> &paths, const QByteArray &bundleIdentifier)
{
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE_STRING_ARRAY);
    for (const auto &path : paths)
        g_variant_builder_add(&list, "s", path.constData());
    return g_variant_new("(ass)", &list, bundleIdentifier.constData());
}

HelperAnswer answerOf(const BusAnswer &reply, const QList<QByteArray> &sentPaths)
{
    if (!reply.values)
        return {{}, reply.error};
    const std::string type = g_variant_get_type_string(reply.values.get());
    if (type == "()")
        return {};
    if (type != "(a{ss})")
        return {{}, QStringLiteral("The helper answered %1 and not (a{ss}).").arg(QString::fromStdString(type))};

    HelperAnswer answer;
    const QSet<QByteArray> sent(sentPaths.begin(), sentPaths.end());
    GVariantIter *entries = nullptr;
    g_variant_get(reply.values.get(), "(a{ss})", &entries);
    const char *path = nullptr;
    const char *message = nullptr;
    while (g_variant_iter_next(entries, "{&s&s}", &path, &message)) {
        if (sent.contains(path))
            answer.messages.insert(path, QString::fromUtf8(message));
    }
    g_variant_iter_free(entries);
    return answer;
}

HelperAnswer askHelper(const QByteArray &address, const QList<QByteArray> &paths,
                       const QByteArray &bundleIdentifier)
{
    const auto object = '/' + QByteArray(label).replace('.', '/');
    const BusConnection bus(address, patienceForBus);
    const auto reply =
        bus.call({label, object.constData(), label, "moveItemsToTrash"}, requestOf(paths, bundleIdentifier),
                 nullptr, BusConnection::noLimit, G_DBUS_CALL_FLAGS_ALLOW_INTERACTIVE_AUTHORIZATION);
    return answerOf(reply, paths);
}

/// The library does not look for it anywhere, so this takes no time.
QByteArray systemBusAddress()
{
    auto *address = g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SYSTEM, nullptr, nullptr);
    const QByteArray copy(address);
    g_free(address);
    return copy;
}

} // namespace

LinuxHelperService::LinuxHelperService(QByteArray busAddress)
    : m_busAddress(busAddress.isEmpty() ? systemBusAddress() : std::move(busAddress))
{
}

QFuture<HelperStatus> LinuxHelperService::status() const
{
    return onThreadOfItsOwn([bus = m_busAddress] { return statusOnBus(bus); });
}

QFuture<std::optional<QString>> LinuxHelperService::registerService()
{
    return onThreadOfItsOwn([bus = m_busAddress] { return registerOnBus(bus); });
}

QFuture<HelperAnswer> LinuxHelperService::moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                                           const QString &bundleIdentifier)
{
    auto paths = standardizedPaths;
    paths.removeIf([](const QByteArray &path) { return !isText(path); });
    if (paths.isEmpty())
        return readyFuture(HelperAnswer());
    const auto identifier = bundleIdentifier.toUtf8();
    if (!isText(identifier))
        return readyFuture(
            HelperAnswer{{}, QStringLiteral("The application's identifier holds what no text of the bus may.")});
    return onThreadOfItsOwn([bus = m_busAddress, paths, identifier] { return askHelper(bus, paths, identifier); });
}
