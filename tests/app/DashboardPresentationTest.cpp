#include "DashboardPresentation.h"

#include "DashboardSnapshot.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

DashboardSnapshot desktop()
{
    return {{"Studio", "Model9,1", "13.1", "CPU", "16 GB", std::nullopt},
            std::nullopt,
            {"Macintosh HD", 1000, 250},
            {16'000, 4'000, std::nullopt, std::nullopt, std::nullopt, std::nullopt}};
}

QStringList valuesOf(const QList<LabelledValue> &rows)
{
    QStringList values;
    for (const auto &row : rows)
        values.append(row.value);
    return values;
}

BatteryInfo battery(const QString &power, const std::optional<QString> &condition)
{
    BatteryInfo info{};
    info.powerSource = info.timeRemaining = power;
    info.condition = condition;
    return info;
}

QStringList batteryValues(const BatteryInfo &battery, AppLanguage language = AppLanguage::english)
{
    auto snapshot = desktop();
    snapshot.battery = battery;
    return valuesOf(DashboardPresentation(snapshot, language).batteryValues);
}

} // namespace

TEST(DashboardPresentation, desktopWithoutABatteryShowsEverythingElse)
{
    const DashboardPresentation shown(desktop(), AppLanguage::english);
    EXPECT_FALSE(shown.hasBattery);
    EXPECT_TRUE(shown.batteryValues.isEmpty());
    EXPECT_THAT(valuesOf(shown.computerValues), ElementsAre("CPU", "16 GB", "Not available"));
    EXPECT_EQ(shown.storageGauge.text, "75%");
    EXPECT_EQ(shown.memoryGauge.percentage, 25);
    EXPECT_EQ(valuesOf(shown.memoryValues).sliced(2), QStringList(4, "Not available"));
}

TEST(DashboardPresentation, wordsOfTheServiceAreTranslatedAndTheComputersOwnAreNot)
{
    const auto shown = [](const QString &power, const QString &condition) {
        const auto values = batteryValues(battery(power, condition), AppLanguage::polish);
        return values.at(0) + u'|' + values.at(4);
    };
    EXPECT_EQ(shown("Power adapter", "FAIR"), "Zasilacz podłączony|Średni");
    EXPECT_EQ(shown("power adapter", "Check Soon"), "power adapter|Check Soon");
    EXPECT_EQ(shown("Unlimited", "good"), "Bez limitu przy zasilaczu|Dobry");
    EXPECT_EQ(shown("Unknown", ""), "Niedostępne|Niedostępne");
}

TEST(DashboardPresentation, capacityNeedsBothOfItsValues)
{
    BatteryInfo half{80, true, "Battery", "2 h 3 min", 91, "Good", 12, 4000, std::nullopt, 5000};
    EXPECT_THAT(batteryValues(half),
                ElementsAre("Battery", "2 h 3 min", "Yes", "91%", "Good", "12", "Not available", "5000 mAh"));
    half.maxCapacity = 4500;
    EXPECT_EQ(batteryValues(half).at(6), "4000 / 4500 mAh");
    EXPECT_EQ(batteryValues(battery("Unknown", {})).count("Not available"), 7);
}

TEST(DashboardPresentation, sharesOfNothingAndOfUnknownAreEmpty)
{
    auto snapshot = desktop();
    snapshot.storage = {};
    snapshot.memory.usedBytes.reset();
    const DashboardPresentation shown(snapshot, AppLanguage::english);
    EXPECT_EQ(shown.storageGauge, (Gauge{0, 0, "0%"}));
    EXPECT_EQ(shown.memoryGauge, (Gauge{0, 0, "Not available"}));
}

TEST(DashboardPresentation, moreFreeThanThereIsLeavesNothingUsed)
{
    auto snapshot = desktop();
    snapshot.storage = {"Thin", 1000, 2500};
    const DashboardPresentation shown(snapshot, AppLanguage::english);
    EXPECT_THAT(valuesOf(shown.storageValues), ElementsAre("0 B", "3 KB", "1 KB"));
    EXPECT_EQ(shown.storageGauge.text, "0%");
}

TEST(DashboardPresentation, theStartIsToldAsTheSystemsLocaleTellsDates)
{
    auto snapshot = desktop();
    const QDateTime start(QDate(2026, 11, 3), QTime(15, 4, 59));
    snapshot.computer.bootDate = start;
    // The tests run without a country.
    for (const auto language : {AppLanguage::english, AppLanguage::polish})
        EXPECT_EQ(DashboardPresentation(snapshot, language).computerValues.at(2).value, "3 Nov 2026, 15:04");

    const std::pair<const char *, const char *> moments[] = {
        {"pl_PL", "3 lis 2026, 15:04"},    {"en_GB", "3 Nov 2026, 15:04"},
        {"de_DE", "3. Nov. 2026, 15:04"},  {"es_ES", "3 de nov de 2026, 15:04"},
        {"hu_HU", "2026. nov. 3., 15:04"}, {"ja_JP", "2026年11月3日, 15:04"}};
    for (const auto &[locale, text] : moments)
        EXPECT_EQ(shortMoment(start, QLocale(locale)), text) << locale;
    EXPECT_TRUE(shortMoment(start, QLocale("en_US")).startsWith("Nov 3, 2026, 3:04"));
}
