#include "LinuxAppearance.h"

#include "BusConnection.h"
#include "SessionBus.h"

#include <QPromise>

#include <thread>

namespace {

constexpr auto portalService = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto settingsInterface = "org.freedesktop.portal.Settings";
constexpr auto appearanceGroup = "org.freedesktop.appearance";
constexpr auto colorSchemeKey = "color-scheme";

// The bus may have to start the portal first; this is what its library gives every call.
constexpr std::chrono::seconds patienceForPortal{25};

/// Takes over `value`, which may be a variant, or one in another.
bool isDarkScheme(GVariant *value)
{
    // 0: no preference, 1: dark, 2: light; anything else is to be taken for 0.
    constexpr guint32 dark = 1;
    while (g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT)) {
        auto *inner = g_variant_get_variant(value);
        g_variant_unref(value);
        value = inner;
    }
    const bool isDark = g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32) && g_variant_get_uint32(value) == dark;
    g_variant_unref(value);
    return isDark;
}

/// Tells `isDark` now and after every change, until it is to stop. Blocks.
void watchColorScheme(const QByteArray &address, const std::stop_token &stop, QPromise<bool> &isDark)
{
    BusConnection bus(address, BusConnection::noLimit, stop);
    // Before the first reading, so that no change falls between the two.
    bus.subscribe({portalService, settingsInterface, "SettingChanged", appearanceGroup}, [&](GVariant *change) {
        if (!g_variant_is_of_type(change, G_VARIANT_TYPE("(ssv)")))
            return;
        const char *key = nullptr;
        GVariant *value = nullptr;
        g_variant_get(change, "(&s&s@v)", nullptr, &key, &value);
        if (g_str_equal(key, colorSchemeKey))
            isDark.addResult(isDarkScheme(value));
        else
            g_variant_unref(value);
    });
    // "ReadOne" would do without the variant in a variant, but portals before 1.17 do not have it.
    const auto scheme = bus.call({portalService, portalPath, settingsInterface, "Read"},
                                 g_variant_new("(ss)", appearanceGroup, colorSchemeKey), "(v)", patienceForPortal);
    if (scheme.values)
        isDark.addResult(isDarkScheme(g_variant_get_child_value(scheme.values.get(), 0)));
    bus.listen([] { return false; });
}

} // namespace

LinuxAppearance::LinuxAppearance(const QByteArray &busAddress, QObject *parent) : Appearance(parent)
{
    connect(&m_told, &QFutureWatcherBase::resultReadyAt, this,
            [this](int index) { setDark(m_told.resultAt(index)); });
    QPromise<bool> promise;
    promise.start();
    m_told.setFuture(promise.future());
    std::thread([promise = std::move(promise), stop = m_stop.get_token(),
                 address = busAddress.isEmpty() ? sessionBusAddress() : busAddress]() mutable {
        watchColorScheme(address, stop, promise);
        promise.finish();
    }).detach();
}

LinuxAppearance::~LinuxAppearance()
{
    m_stop.request_stop();
}

void LinuxAppearance::setDark(bool isDark)
{
    if (std::exchange(m_isDark, isDark) != isDark)
        Q_EMIT changed();
}
