#pragma once

#include "Appearance.h"

#include <QFutureWatcher>

#include <stop_token>

/// The desktop's colour scheme as the settings portal tells it (org.freedesktop.portal.Settings on the session
/// bus), which every desktop that has a dark mode provides and which is the same inside of a sandbox. Light before
/// the portal has answered, and where there is no bus or no portal.
class LinuxAppearance : public Appearance
{
    Q_OBJECT

public:
    /// Asks the portal without waiting for it. `busAddress` names the bus, for tests; without one it is the user's
    /// session bus, which is not started where it does not run.
    explicit LinuxAppearance(const QByteArray &busAddress = {}, QObject *parent = nullptr);
    ~LinuxAppearance() override;

    bool isDark() const override { return m_isDark; }

private:
    void setDark(bool isDark);

    bool m_isDark = false;
    // What the portal has told so far, one result after another: whether the desktop is dark.
    QFutureWatcher<bool> m_told;
    std::stop_source m_stop;
};
