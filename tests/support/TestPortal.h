#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

/// Stands on a bus where the desktop's portal would; what it answers, a test says.
class TestPortal : public QDBusVirtualObject
{
public:
    explicit TestPortal(const QString &address) : m_bus(QDBusConnection::connectToBus(address, "portal"))
    {
        EXPECT_TRUE(m_bus.registerVirtualObject("/org/freedesktop/portal/desktop", this));
        EXPECT_TRUE(m_bus.registerService("org.freedesktop.portal.Desktop"));
    }
    ~TestPortal() override { QDBusConnection::disconnectFromBus("portal"); }

    QString introspect(const QString &) const override { return {}; }

protected:
    QDBusConnection m_bus;
};
