#include "DashboardPresentation.h"

#include "DashboardSnapshot.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

constexpr auto GiB = quint64(1) << 30;

static DashboardSnapshot laptop()
{
    return {{"Book", "Model9,1", "13.1", "CPU", "16 GB", QDateTime({2026, 11, 3}, {15, 4, 59})},
            BatteryInfo{80, true, "Battery", "2 h 3 min", 91, "Good", 12, 4000, 4500, 5000},
            {"Macintosh HD", 4'000'000'000, 1'000'000'000},
            {4 * GiB, GiB, 2 * GiB, GiB / 2, GiB / 4, GiB / 8}};
}

/// "label: value", and behind these the symbol of a row that has one.
static QStringList textsOf(const QList<LabelledValue> &rows)
{
    QStringList texts;
    for (const auto &row : rows)
        texts.append((row.label + ": " + row.value + ' ' + row.symbol).trimmed());
    return texts;
}

TEST(DashboardPresentation, everyReadingIsShownInItsPlaceAndUnit)
{
    const DashboardPresentation shown(laptop(), AppLanguage::english);
    EXPECT_EQ(shown.computerName + '|' + shown.modelIdentifier + '|' + shown.operatingSystem + '|'
                  + shown.volumeName,
              "Book|Model9,1|13.1|Macintosh HD");
    EXPECT_TRUE(shown.hasBattery && shown.isCharging);
    // The tests run without a country.
    EXPECT_THAT(textsOf(shown.computerValues), ElementsAre("Processor: CPU cpu", "Memory: 16 GB memorychip",
                                                           "Boot date: 3 Nov 2026, 15:04 clock.arrow.circlepath"));
    EXPECT_THAT(textsOf(shown.batteryValues),
                ElementsAre("Power source: Battery", "Estimated battery life: 2 h 3 min", "Charging: Yes",
                            "Health: 91%", "Condition: Good", "Cycle count: 12", "Capacity: 4000 / 4500 mAh",
                            "Design capacity: 5000 mAh"));
    EXPECT_THAT(textsOf(shown.storageValues), ElementsAre("Used: 3 GB", "Free: 1 GB", "Total: 4 GB"));
    EXPECT_THAT(textsOf(shown.memoryValues),
                ElementsAre("Total: 4 GB", "Used: 1 GB", "Free: 2 GB", "Wired memory: 512 MB",
                            "Active memory: 256 MB", "Compressed memory: 128 MB"));
    EXPECT_EQ(shown.chargeGauge, (Gauge{0.8, 80, "80%"}));
    EXPECT_EQ(shown.storageGauge, (Gauge{0.75, 75, "75%"}));
    EXPECT_EQ(shown.memoryGauge, (Gauge{0.25, 25, "25%"}));
}

TEST(DashboardPresentation, whatIsNotKnownIsSaidToBeSo)
{
    const DashboardPresentation desktop({}, AppLanguage::english);
    EXPECT_FALSE(desktop.hasBattery || desktop.isCharging);
    EXPECT_THAT(desktop.batteryValues, testing::IsEmpty());
    EXPECT_EQ(desktop.computerValues.at(2).value, "Not available");
    EXPECT_EQ(desktop.storageGauge, (Gauge{0, 0, "0%"}));
    EXPECT_EQ(desktop.memoryGauge, (Gauge{0, 0, "Not available"}));
    EXPECT_EQ(textsOf(desktop.memoryValues).filter("Not available").size(), 5);

    DashboardSnapshot unknown{};
    auto &battery = unknown.battery.emplace();
    battery.powerSource = battery.timeRemaining = "Unknown";
    const auto values = [&] {
        return textsOf(DashboardPresentation(unknown, AppLanguage::english).batteryValues);
    };
    EXPECT_EQ(values().at(2), "Charging: No");
    EXPECT_EQ(values().filter("Not available").size(), 7);
    battery.currentCapacity = 4000;
    EXPECT_EQ(values().at(6), "Capacity: Not available");
    battery.currentCapacity.swap(battery.maxCapacity);
    EXPECT_EQ(values().at(6), "Capacity: Not available");

    // Some file systems promise more than they hold.
    unknown.storage = {"Thin", 1000, 2500};
    unknown.memory.totalBytes = 1000;
    unknown.memory.usedBytes = 2500;
    const DashboardPresentation thin(unknown, AppLanguage::english);
    EXPECT_THAT(textsOf(thin.storageValues), ElementsAre("Used: 0 B", "Free: 3 KB", "Total: 1 KB"));
    EXPECT_EQ(thin.storageGauge, (Gauge{0, 0, "0%"}));
    EXPECT_EQ(thin.memoryGauge, (Gauge{1, 100, "100%"}));
}

TEST(DashboardPresentation, wordsOfTheServiceAreTranslatedAndTheComputersOwnAreNot)
{
    const auto shown = [](const QString &power, const QString &condition) {
        auto snapshot = laptop();
        snapshot.battery->powerSource = snapshot.battery->timeRemaining = power;
        snapshot.battery->condition = condition;
        const auto values = DashboardPresentation(snapshot, AppLanguage::polish).batteryValues;
        EXPECT_EQ(values.at(0).value, values.at(1).value);
        return values.at(0).value + u'|' + values.at(4).value;
    };
    EXPECT_EQ(shown("Power adapter", "FAIR"), "Zasilacz podłączony|Średni");
    EXPECT_EQ(shown("power adapter", "Check Soon"), "power adapter|Check Soon");
    EXPECT_EQ(shown("Unlimited", "good"), "Bez limitu przy zasilaczu|Dobry");
    EXPECT_EQ(shown("Unknown", "Poor"), "Niedostępne|Słaby");
    EXPECT_EQ(shown("", ""), "|Niedostępne");
}

TEST(DashboardPresentation, theStartIsToldAsTheSystemsLocaleTellsDates)
{
    const auto start = *laptop().computer.bootDate;
    EXPECT_EQ(DashboardPresentation(laptop(), AppLanguage::polish).computerValues.at(2).value,
              "3 Nov 2026, 15:04");

    const std::pair<const char *, const char *> moments[] = {
        {"pl_PL", "3 lis 2026, 15:04"},    {"en_GB", "3 Nov 2026, 15:04"},
        {"de_DE", "3. Nov. 2026, 15:04"},  {"es_ES", "3 de nov de 2026, 15:04"},
        {"hu_HU", "2026. nov. 3., 15:04"}, {"ja_JP", "2026年11月3日, 15:04"}};
    for (const auto &[locale, text] : moments)
        EXPECT_EQ(shortMoment(start, QLocale(locale)), text) << locale;
    EXPECT_TRUE(shortMoment(start, QLocale("en_US")).startsWith("Nov 3, 2026, 3:04"));
}
