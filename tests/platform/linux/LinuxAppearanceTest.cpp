#include "LinuxAppearance.h"

#include "TestBus.h"
#include "TestPortal.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QTest>

/// A settings portal that answers as portals do: with a variant in a variant.
class SettingsPortal : public TestPortal
{
public:
    using TestPortal::TestPortal;

    bool handleMessage(const QDBusMessage &request, const QDBusConnection &bus) override
    {
        const QVariantList colorScheme{"org.freedesktop.appearance", "color-scheme"};
        if (request.member() != QLatin1String("Read") || request.arguments() != colorScheme)
            return false;
        const auto inner = QVariant::fromValue(QDBusVariant(scheme));
        return bus.send(request.createReply(QVariant::fromValue(QDBusVariant(inner))));
    }

    void change(const QString &group, const QString &key, const QVariant &value)
    {
        auto signal = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                 "org.freedesktop.portal.Settings", "SettingChanged");
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        m_bus.send(signal);
    }

    QVariant scheme = 0U;
};

struct LinuxAppearanceTest : testing::Test
{
    static bool comesTrue(const auto &condition) { return QTest::qWaitFor(condition, 10'000); }

    TestBus bus;
};

TEST_F(LinuxAppearanceTest, followsTheDesktop)
{
    SettingsPortal portal(bus.address());
    portal.scheme = 1U;
    const LinuxAppearance appearance(bus.address().toUtf8());
    int changes = 0;
    QObject::connect(&appearance, &Appearance::changed, [&] { ++changes; });
    EXPECT_FALSE(appearance.isDark()) << "the portal is not waited for";
    EXPECT_TRUE(comesTrue([&] { return appearance.isDark(); }));

    // Only the last of these is a change: the ones before are of another setting or say the same.
    portal.change("org.freedesktop.appearance", "contrast", 0U);
    portal.change("org.example", "color-scheme", 2U);
    portal.change("org.freedesktop.appearance", "color-scheme", 1U);
    EXPECT_EQ(changes, 1);
    portal.change("org.freedesktop.appearance", "color-scheme", 2U);
    EXPECT_TRUE(comesTrue([&] { return !appearance.isDark(); }));
    EXPECT_EQ(changes, 2);
    portal.change("org.freedesktop.appearance", "color-scheme", 1U);
    EXPECT_TRUE(comesTrue([&] { return appearance.isDark(); }));
    portal.change("org.freedesktop.appearance", "color-scheme", "dark");
    EXPECT_TRUE(comesTrue([&] { return !appearance.isDark(); })) << "an answer of another type";
}

TEST_F(LinuxAppearanceTest, withoutAPortalOrABusItIsLight)
{
    const LinuxAppearance appearance(bus.address().toUtf8());
    EXPECT_FALSE(LinuxAppearance("unix:path=/nowhere").isDark());

    // A portal that comes later is heard.
    SettingsPortal portal(bus.address());
    EXPECT_FALSE(appearance.isDark());
    EXPECT_TRUE(comesTrue([&] {
        portal.change("org.freedesktop.appearance", "color-scheme", 1U);
        return appearance.isDark();
    }));
}
