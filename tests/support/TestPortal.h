#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

/// Stands on a bus where the desktop's portal would, or another of its programs; what it answers, a test says.
class TestPortal : public QDBusVirtualObject
{
public:
    explicit TestPortal(const QString &address, const QString &path = "/org/freedesktop/portal/desktop",
                        const QString &name = "org.freedesktop.portal.Desktop")
        : m_bus(QDBusConnection::connectToBus(address, "portal"))
    {
        EXPECT_TRUE(m_bus.registerVirtualObject(path, this));
        EXPECT_TRUE(m_bus.registerService(name));
    }
    ~TestPortal() override { QDBusConnection::disconnectFromBus("portal"); }

    QString introspect(const QString &) const override { return {}; }

protected:
    QDBusConnection m_bus;
};
