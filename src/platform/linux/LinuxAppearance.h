#pragma once

#include "Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>

/// The desktop's colour scheme as the settings portal tells it (org.freedesktop.portal.Settings on the session
/// bus), which every desktop that has a dark mode provides and which is the same inside of a sandbox. Light before
/// the portal has answered, and where there is no bus or no portal.
class LinuxAppearance : public Appearance
{
    Q_OBJECT

public:
    /// Asks the portal without waiting for it. `busAddress` names the bus, for tests; without one it is the user's
    /// session bus, which is not started where it does not run.
    explicit LinuxAppearance(const QString &busAddress = {}, QObject *parent = nullptr);
    ~LinuxAppearance() override;

    bool isDark() const override { return m_isDark; }

private Q_SLOTS:
    // Takes the whole message: a slot with a QDBusVariant is not called until the bus library has met that type.
    void settingChanged(const QDBusMessage &signal);

private:
    void readColorScheme();
    void setColorScheme(const QVariant &value);

    QDBusConnection m_bus;
    bool m_isDark = false;
};
