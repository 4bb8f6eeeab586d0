#include "SystemInfoService.h"

#include "FakeSystemFacts.h"
#include "InMemoryFileSystem.h"

#include <gmock/gmock.h>
#include <limits>

namespace {

using testing::Eq;
using testing::Optional;

class SystemInfoServiceTest : public testing::Test
{
protected:
    /// The battery of a computer that has one with this charge.
    BatteryInfo battery(std::optional<qint64> current, std::optional<qint64> max)
    {
        facts.powerSourceValue = PowerSourceDescription{.currentCapacity = current,
                                                        .maxCapacity = max,
                                                        .powerSourceState = std::nullopt,
                                                        .isCharging = std::nullopt};
        return *service.batteryInfo();
    }

    QString timeRemaining(double estimate, bool isCharging = false)
    {
        facts.powerSourceValue.emplace().isCharging = isCharging;
        facts.timeRemainingValue = estimate;
        return service.batteryInfo()->timeRemaining;
    }

    InMemoryFileSystem disk;
    FakeSystemFacts facts;
    SystemInfoService service{disk, facts};
};

TEST_F(SystemInfoServiceTest, aComputerThatTellsNothingTakesEveryFallback)
{
    disk.setVolume(std::nullopt);
    facts.hostNameValue = "box.local";
    const auto [computer, battery, storage, memory] = service.snapshot();

    EXPECT_EQ(computer.computerName, "box.local");
    EXPECT_EQ(computer.modelIdentifier, "Unknown Mac");
    EXPECT_EQ(computer.processor, "Unknown CPU");
    EXPECT_EQ(computer.bootDate, std::nullopt);
    EXPECT_FALSE(battery);
    EXPECT_EQ(storage.volumeName, "Macintosh HD");
    EXPECT_EQ(storage.totalBytes, 0);
    EXPECT_EQ(storage.freeBytes, 0);
    EXPECT_EQ(memory.totalBytes, 0U);
    EXPECT_EQ(memory.usedBytes, std::nullopt);
    EXPECT_EQ(memory.freeBytes, std::nullopt);
}

TEST_F(SystemInfoServiceTest, firmwareTextsEndAtTheFirstZeroAndLoseUnicodeBlanks)
{
    facts.modelValue = QStringLiteral(u"\u00a0\u3000 Book\u00a0Pro \u2029\n\0rubbish");
    facts.processorBrandValue = QStringLiteral(u" \u2003\t ");
    facts.localizedHostNameValue = QStringLiteral("Ala's computer");
    facts.physicalMemoryValue = quint64(16) << 30;
    facts.uptimeValue = 3600.5;
    const auto computer = service.computerInfo();

    EXPECT_EQ(computer.modelIdentifier, QStringLiteral(u"Book\u00a0Pro"));
    EXPECT_EQ(computer.processor, QString()) << "readable but blank is not unknown";
    EXPECT_EQ(computer.computerName, "Ala's computer");
    EXPECT_EQ(computer.memory, "16 GB");
    EXPECT_NEAR(static_cast<double>(computer.bootDate->msecsTo(QDateTime::currentDateTime())), 3600500, 2000);
}

TEST_F(SystemInfoServiceTest, chargeIsCutOffInDoublePrecisionAndClamped)
{
    constexpr auto largest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(battery(80, 100).percentage, 80);
    EXPECT_EQ(battery(799, 1000).percentage, 79);
    EXPECT_EQ(battery(29, 100).percentage, 28) << "29.0 / 100 * 100 is a little less than 29";
    EXPECT_EQ(battery(150, 100).percentage, 100);
    EXPECT_EQ(battery(largest, 1).percentage, 100);
    EXPECT_EQ(battery(-largest, 1).percentage, 0);
    EXPECT_EQ(battery(80, 0).percentage, 0);
    EXPECT_EQ(battery(80, std::nullopt).percentage, 0);
    EXPECT_EQ(battery(std::nullopt, 100).percentage, 0);
}

TEST_F(SystemInfoServiceTest, healthIsAbsentWhereItCannotBeComputed)
{
    EXPECT_EQ(battery(80, 100).healthPercentage, std::nullopt) << "no registry entry";
    facts.registryEntryValue.emplace();
    EXPECT_EQ(battery(80, 100).healthPercentage, std::nullopt);
    facts.registryEntryValue->designCapacity = 0;
    EXPECT_EQ(battery(80, 100).healthPercentage, std::nullopt);
    facts.registryEntryValue->designCapacity = 120;
    EXPECT_THAT(battery(80, 100).healthPercentage, Optional(83));
    EXPECT_EQ(battery(80, std::nullopt).healthPercentage, std::nullopt);
}

TEST_F(SystemInfoServiceTest, conditionIsTheHealthAndOnlyWithoutItTheFailure)
{
    facts.registryEntryValue.emplace().permanentFailureStatus = "Cell failure";
    EXPECT_THAT(battery(1, 2).condition, Optional(Eq("Cell failure")));
    facts.registryEntryValue->batteryHealth = "Good";
    EXPECT_THAT(battery(1, 2).condition, Optional(Eq("Good")));
}

TEST_F(SystemInfoServiceTest, powerSourceIsTranslatedOnlyWhereItIsKnown)
{
    const auto shown = [this](std::optional<QString> state) {
        facts.powerSourceValue.emplace().powerSourceState = std::move(state);
        return service.batteryInfo()->powerSource;
    };
    EXPECT_EQ(shown("AC Power"), "Power adapter");
    EXPECT_EQ(shown("Battery Power"), "Battery");
    EXPECT_EQ(shown("ac power"), "ac power");
    EXPECT_EQ(shown("UPS Power"), "UPS Power");
    EXPECT_EQ(shown(std::nullopt), "Unknown");
    EXPECT_FALSE(service.batteryInfo()->isCharging);
}

TEST_F(SystemInfoServiceTest, timeTexts)
{
    EXPECT_EQ(timeRemaining(-2, true), "Power adapter");
    EXPECT_EQ(timeRemaining(-2, false), "Unlimited");
    EXPECT_EQ(timeRemaining(-1), "Unknown");
    EXPECT_EQ(timeRemaining(-2.5), "Unknown");
    EXPECT_EQ(timeRemaining(std::numeric_limits<double>::quiet_NaN()), "Unknown");
    EXPECT_EQ(timeRemaining(std::numeric_limits<double>::infinity()), "Unknown");
    EXPECT_EQ(timeRemaining(0), "0 min");
    EXPECT_EQ(timeRemaining(3599.9), "59 min");
    EXPECT_EQ(timeRemaining(3600), "1 h 0 min");
    EXPECT_EQ(timeRemaining(7385, true), "2 h 3 min");
}

TEST_F(SystemInfoServiceTest, freeSpacePrefersWhatCouldBeMadeFree)
{
    disk.setVolume(VolumeValues{
        .name = "Data", .totalCapacity = 100, .availableCapacityForImportantUsage = 0, .availableCapacity = 20});
    EXPECT_EQ(service.storageInfo().freeBytes, 0) << "nothing is an answer too";
    EXPECT_EQ(service.storageInfo().volumeName, "Data");
    disk.setVolume(VolumeValues{.name = std::nullopt,
                                .totalCapacity = 100,
                                .availableCapacityForImportantUsage = std::nullopt,
                                .availableCapacity = 20});
    EXPECT_EQ(service.storageInfo().freeBytes, 20);
    EXPECT_EQ(service.storageInfo().totalBytes, 100);
}

TEST_F(SystemInfoServiceTest, usedMemoryNeverExceedsWhatIsInstalled)
{
    facts.physicalMemoryValue = 1000;
    facts.pagesValue = VirtualMemoryStatistics{
        .freeCount = 10, .speculativeCount = 5, .activeCount = 20, .wiredCount = 30, .compressorPageCount = 40};
    EXPECT_EQ(service.memoryInfo().usedBytes, std::nullopt) << "the page size is not known";

    facts.pageSizeValue = 10;
    const auto memory = service.memoryInfo();
    EXPECT_THAT(memory.usedBytes, Optional(900U));
    EXPECT_THAT(memory.freeBytes, Optional(150U));
    EXPECT_THAT(memory.activeBytes, Optional(200U));
    EXPECT_THAT(memory.wiredBytes, Optional(300U));
    EXPECT_THAT(memory.compressedBytes, Optional(400U));

    facts.pageSizeValue = 4096;
    EXPECT_THAT(service.memoryInfo().usedBytes, Optional(1000U));
}

} // namespace
