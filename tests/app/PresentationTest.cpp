#include "Presentation.h"

#include "DashboardPresentation.h"
#include "DashboardSnapshot.h"
#include "DeletionRequest.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

DashboardSnapshot desktop()
{
    return {{QStringLiteral("Studio"), QStringLiteral("Model9,1"), QStringLiteral("13.1"), QStringLiteral("CPU"),
             QStringLiteral("16 GB"), std::nullopt},
            std::nullopt,
            {QStringLiteral("Macintosh HD"), 1000, 250},
            {16'000, 4'000, std::nullopt, std::nullopt, std::nullopt, std::nullopt}};
}

BatteryInfo battery(const QString &power, const std::optional<QString> &condition)
{
    return {80, true, power, QStringLiteral("2 h 3 min"), 91, condition, 12, 4000, std::nullopt, 5000};
}

QStringList valuesOf(const QList<LabelledValue> &rows)
{
    QStringList values;
    for (const auto &row : rows)
        values.append(row.value);
    return values;
}

const auto notAvailable = QStringLiteral("Not available");

} // namespace

TEST(Presentation, everySectionAndCategoryHasATextAndASymbol)
{
    const auto sections = Presentation::sections();
    ASSERT_EQ(sections.size(), 7);
    for (const auto &value : sections) {
        const auto section = value.value<SidebarSection>();
        EXPECT_NE(Presentation::text(section.textKey, AppLanguage::polish), section.textKey);
        EXPECT_FALSE(section.symbol.isEmpty());
    }
    for (const auto &value : Presentation::mediaCategories() + Presentation::textFileCategories()) {
        const auto key = value.value<CategoryChoice>().textKey;
        EXPECT_NE(Presentation::text(key, AppLanguage::english), key);
    }
    EXPECT_EQ(Presentation::languages().last().value<LanguageChoice>().label, QStringLiteral("EN"));
}

TEST(Presentation, confirmationNamesCountAndSizeInTheLanguageOfTheMoment)
{
    const ScanItem item{Url("/a"), ScanItemKind::cache, ScanConfidence::exact, 4000, true};
    const auto request = QVariant::fromValue(DeletionRequest{QUuid(), ScanScope::cleaner, {item, item, item}});
    EXPECT_EQ(Presentation::confirmationMessage(request, AppLanguage::english),
              QStringLiteral("This will move 3 items (12 KB) to Trash. They can be restored from Trash."));
    EXPECT_TRUE(Presentation::confirmationMessage(request, AppLanguage::polish).startsWith(u"Operacja obejmie 3"));
    EXPECT_EQ(Presentation::confirmationMessage({}, AppLanguage::polish), QString());
}

TEST(Presentation, placeholdersTakeNumbersFromQmlAndTextsWithPercentSigns)
{
    EXPECT_EQ(Presentation::filledText(QStringLiteral("media_summary"), AppLanguage::english,
                                       {50'000.0, QStringLiteral("%d")}),
              QStringLiteral("Found: 50000 • Total size: %d"));
}

TEST(DashboardPresentation, desktopWithoutABatteryShowsEverythingElse)
{
    const DashboardPresentation shown(desktop(), AppLanguage::english);
    EXPECT_FALSE(shown.hasBattery);
    EXPECT_TRUE(shown.batteryValues.isEmpty());
    EXPECT_THAT(valuesOf(shown.computerValues),
                ElementsAre(QStringLiteral("CPU"), QStringLiteral("16 GB"), notAvailable));
    EXPECT_EQ(shown.storageGauge.text, QStringLiteral("75%"));
    EXPECT_EQ(shown.memoryGauge.percentage, 25);
    EXPECT_EQ(valuesOf(shown.memoryValues).sliced(2), QStringList(4, notAvailable));
}

TEST(DashboardPresentation, wordsOfTheServiceAreTranslatedAndTheComputersOwnAreNot)
{
    auto snapshot = desktop();
    const auto row = [&](const QString &power, const std::optional<QString> &condition, qsizetype index) {
        snapshot.battery = battery(power, condition);
        return valuesOf(DashboardPresentation(snapshot, AppLanguage::polish).batteryValues).at(index);
    };
    constexpr auto powerSource = 0;
    constexpr auto condition = 4;
    EXPECT_EQ(row(QStringLiteral("Power adapter"), {}, powerSource), QStringLiteral("Zasilacz podłączony"));
    EXPECT_EQ(row(QStringLiteral("power adapter"), {}, powerSource), QStringLiteral("power adapter"));
    EXPECT_EQ(row(QStringLiteral("Unlimited"), {}, powerSource), QStringLiteral("Bez limitu przy zasilaczu"));
    EXPECT_EQ(row(QStringLiteral("Unknown"), {}, powerSource), QStringLiteral("Niedostępne"));
    EXPECT_EQ(row({}, QStringLiteral("FAIR"), condition), QStringLiteral("Średni"));
    EXPECT_EQ(row({}, QStringLiteral("Check Soon"), condition), QStringLiteral("Check Soon"));
    EXPECT_EQ(row({}, QString(), condition), QStringLiteral("Niedostępne"));
}

TEST(DashboardPresentation, capacityNeedsBothOfItsValues)
{
    auto snapshot = desktop();
    snapshot.battery = battery(QStringLiteral("Battery"), QStringLiteral("Good"));
    EXPECT_THAT(valuesOf(DashboardPresentation(snapshot, AppLanguage::english).batteryValues),
                ElementsAre(QStringLiteral("Battery"), QStringLiteral("2 h 3 min"), QStringLiteral("Yes"),
                            QStringLiteral("91%"), QStringLiteral("Good"), QStringLiteral("12"), notAvailable,
                            QStringLiteral("5000 mAh")));
    snapshot.battery->maxCapacity = 4500;
    EXPECT_EQ(valuesOf(DashboardPresentation(snapshot, AppLanguage::english).batteryValues).at(6),
              QStringLiteral("4000 / 4500 mAh"));
}

TEST(DashboardPresentation, sharesOfNothingAndOfUnknownAreEmpty)
{
    auto snapshot = desktop();
    snapshot.storage = {QString(), 0, 0};
    snapshot.memory.usedBytes.reset();
    const DashboardPresentation shown(snapshot, AppLanguage::english);
    EXPECT_EQ(shown.storageGauge, (Gauge{0, 0, QStringLiteral("0%")}));
    EXPECT_EQ(shown.memoryGauge, (Gauge{0, 0, notAvailable}));
}
