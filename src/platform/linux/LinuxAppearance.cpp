#include "LinuxAppearance.h"

#include "SessionBus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace {

const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto colorSchemeKey = QStringLiteral("color-scheme");

} // namespace

LinuxAppearance::LinuxAppearance(const QString &busAddress, QObject *parent)
    : Appearance(parent), m_bus(openSessionBus(busAddress))
{
    if (!m_bus.isConnected())
        return;
    // Before the first reading, so that no change falls between the two.
    m_bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QDBusMessage)));
    readColorScheme();
}

LinuxAppearance::~LinuxAppearance()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

void LinuxAppearance::readColorScheme()
{
    // "ReadOne" would do without the variant in a variant, but portals before 1.17 do not have it.
    auto request =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    request.setArguments({appearanceGroup, colorSchemeKey});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply(*watcher);
        if (!reply.isError())
            setColorScheme(reply.value().variant());
        watcher->deleteLater();
    });
}

void LinuxAppearance::settingChanged(const QDBusMessage &signal)
{
    const auto arguments = signal.arguments();
    if (arguments.value(0) == appearanceGroup && arguments.value(1) == colorSchemeKey)
        setColorScheme(arguments.value(2));
}

void LinuxAppearance::setColorScheme(const QVariant &value)
{
    // 0: no preference, 1: dark, 2: light; anything else is to be taken for 0.
    constexpr uint dark = 1;
    auto scheme = value;
    while (scheme.canConvert<QDBusVariant>())
        scheme = scheme.value<QDBusVariant>().variant();
    const auto isDark = scheme.metaType() == QMetaType::fromType<uint>() && scheme.toUInt() == dark;
    if (isDark == m_isDark)
        return;
    m_isDark = isDark;
    Q_EMIT changed();
}
