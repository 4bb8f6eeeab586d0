#include "SystemInfoService.h"

#include "FakeSystemFacts.h"
#include "InMemoryFileSystem.h"

#include <gmock/gmock.h>
#include <limits>
#include <tuple>

using testing::_;
using testing::Eq;
using testing::FieldsAre;
using testing::Optional;

struct SystemInfoServiceTest : testing::Test
{
    /// The battery of a computer that has one with this charge.
    BatteryInfo battery(std::optional<qint64> current, std::optional<qint64> max)
    {
        facts.power.source = PowerSourceDescription{current, max, std::nullopt, std::nullopt};
        return *service.batteryInfo();
    }

    QString timeRemaining(double estimate, bool isCharging = false)
    {
        facts.power.source.emplace().isCharging = isCharging;
        facts.power.timeRemainingEstimate = estimate;
        return service.batteryInfo()->timeRemaining;
    }

    InMemoryFileSystem disk;
    FakeSystemFacts facts;
    SystemInfoService service{disk, facts};
};

TEST_F(SystemInfoServiceTest, aComputerThatTellsNothingTakesEveryFallback)
{
    facts.hostNameValue = "box.local";
    const auto [computer, battery, storage, memory] = service.snapshot();
    EXPECT_THAT(computer, FieldsAre("box.local", "Unknown Mac", _, "Unknown CPU", _, std::nullopt));
    EXPECT_FALSE(battery);
    EXPECT_THAT(storage, FieldsAre("Macintosh HD", 0, 0));
    EXPECT_THAT(memory, FieldsAre(0U, std::nullopt, std::nullopt, _, _, _));
}

TEST_F(SystemInfoServiceTest, firmwareTextsEndAtTheFirstZeroAndLoseUnicodeBlanks)
{
    facts.modelValue = QStringLiteral(u"\u00a0\u3000 Book\u00a0Pro \u2029\n\0rubbish");
    facts.processorBrandValue = " \u2003\t ";
    facts.localizedHostNameValue = "Ala's computer";
    facts.physicalMemoryValue = quint64(16) << 30;
    facts.uptimeValue = 3600.5;
    const auto computer = service.computerInfo();

    EXPECT_EQ(computer.modelIdentifier, "Book\u00a0Pro");
    EXPECT_EQ(computer.processor, QString()) << "readable but blank is not unknown";
    EXPECT_EQ(computer.computerName, "Ala's computer");
    EXPECT_EQ(computer.memory, "16 GB");
    EXPECT_NEAR(static_cast<double>(computer.bootDate->msecsTo(QDateTime::currentDateTime())), 3600500, 2000);
}

TEST_F(SystemInfoServiceTest, chargeIsCutOffInDoublePrecisionAndClamped)
{
    constexpr auto largest = std::numeric_limits<qint64>::max();
    // 29.0 / 100 * 100 is a little less than 29.
    const std::tuple<std::optional<qint64>, std::optional<qint64>, int> rows[] = {
        {80, 100, 80}, {799, 1000, 79},       {150, 100, 100},        {largest, 1, 100}, {-largest, 1, 0},
        {80, 0, 0},    {80, std::nullopt, 0}, {std::nullopt, 100, 0}, {29, 100, 28}};
    for (const auto &[current, max, percentage] : rows)
        EXPECT_EQ(battery(current, max).percentage, percentage) << current.value_or(-1) << '/' << max.value_or(-1);
}

TEST_F(SystemInfoServiceTest, healthIsAbsentWhereItCannotBeComputed)
{
    EXPECT_EQ(battery(80, 100).healthPercentage, std::nullopt) << "no registry entry";
    facts.power.registryEntry.emplace();
    EXPECT_EQ(battery(80, 100).healthPercentage, std::nullopt);
    facts.power.registryEntry->designCapacity = 120;
    EXPECT_EQ(battery(80, std::nullopt).healthPercentage, std::nullopt);
    EXPECT_THAT(battery(80, 100).healthPercentage, Optional(83));
    facts.power.source->isPercentage = true;
    EXPECT_EQ(service.batteryInfo()->healthPercentage, std::nullopt) << "a full battery is no old one";
    EXPECT_EQ(service.batteryInfo()->percentage, 80);
}

TEST_F(SystemInfoServiceTest, everythingThatABatteryTellsIsTakenOver)
{
    facts.power.source = PowerSourceDescription{4000, 4500, "AC Power", true};
    facts.power.registryEntry = BatteryRegistryEntry{12, 5000, std::nullopt, "Cell failure"};
    facts.power.timeRemainingEstimate = 7385;
    EXPECT_THAT(*service.batteryInfo(), FieldsAre(88, true, "Power adapter", "2 h 3 min", Optional(90),
                                                  Optional(Eq("Cell failure")), 12, 4000, 4500, 5000));
    facts.power.registryEntry->batteryHealth = "Good";
    EXPECT_THAT(service.batteryInfo()->condition, Optional(Eq("Good")))
        << "a failure only where no health is told";

    const auto shown = [this](const std::optional<QString> &state) {
        facts.power.source.emplace().powerSourceState = state;
        return service.batteryInfo()->powerSource;
    };
    EXPECT_EQ(shown("Battery Power"), "Battery");
    EXPECT_EQ(shown("ac power"), "ac power");
    EXPECT_EQ(shown(std::nullopt), "Unknown");
    EXPECT_FALSE(service.batteryInfo()->isCharging);
}

TEST_F(SystemInfoServiceTest, timeTexts)
{
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ(timeRemaining(-2, true), "Power adapter");
    EXPECT_EQ(timeRemaining(-2, false), "Unlimited");
    for (const auto unknown : {-1.0, -2.5, 1e12, Limits::quiet_NaN(), Limits::infinity()})
        EXPECT_EQ(timeRemaining(unknown), "Unknown") << unknown;
    EXPECT_EQ(timeRemaining(0), "0 min");
    EXPECT_EQ(timeRemaining(3599.9), "59 min");
    EXPECT_EQ(timeRemaining(3600), "1 h 0 min");
}

TEST_F(SystemInfoServiceTest, freeSpacePrefersWhatCouldBeMadeFree)
{
    // Nothing is an answer too.
    disk.setVolume(VolumeValues{"Data", 100, 0, 20});
    EXPECT_THAT(service.storageInfo(), FieldsAre("Data", 100, 0));
    disk.setVolume(VolumeValues{std::nullopt, 100, std::nullopt, 20});
    EXPECT_THAT(service.storageInfo(), FieldsAre("Macintosh HD", 100, 20));
}

TEST_F(SystemInfoServiceTest, usedMemoryNeverExceedsWhatIsInstalled)
{
    facts.physicalMemoryValue = 1000;
    facts.pagesValue = VirtualMemoryStatistics{
        .freeCount = 10, .speculativeCount = 5, .activeCount = 20, .wiredCount = 30, .compressorPageCount = 40};
    EXPECT_EQ(service.memoryInfo().usedBytes, std::nullopt) << "the page size is not known";
    facts.pageSizeValue = 10;
    EXPECT_THAT(service.memoryInfo(), FieldsAre(1000U, 900U, 150U, 300U, 200U, 400U));
    facts.pageSizeValue = 4096;
    EXPECT_THAT(service.memoryInfo().usedBytes, Optional(1000U));
}
