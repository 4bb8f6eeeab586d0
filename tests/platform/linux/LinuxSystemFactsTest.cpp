#include "LinuxSystemFacts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace {

using testing::DoubleNear;
using testing::Eq;
using testing::Optional;
using Attributes = std::initializer_list<std::pair<const char *, const char *>>;

/// A folder that holds what another computer's /proc, /sys and /etc would.
class LinuxSystemFactsTest : public testing::Test
{
protected:
    QString hostPath(const QByteArray &path) const { return folder.path() + QString::fromUtf8(path); }

    void file(const QByteArray &path, const QByteArray &content, qint64 size = -1)
    {
        QDir().mkpath(QFileInfo(hostPath(path)).path());
        QFile file(hostPath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        if (size >= 0) {
            ASSERT_TRUE(file.resize(size));
        }
    }

    void attributes(const QByteArray &in, Attributes values)
    {
        for (const auto &[name, value] : values)
            file(in + '/' + name, QByteArray(value) + '\n');
    }

    void supply(const QByteArray &name, Attributes values)
    {
        attributes("/sys/class/power_supply/" + name, values);
    }

    void chargeBattery(const char *status)
    {
        supply("BAT0", {{"type", "Battery"},
                        {"present", "1"},
                        {"status", status},
                        {"charge_now", "2500000"},
                        {"charge_full", "5000400"},
                        {"charge_full_design", "6000000"},
                        {"current_now", "-1250000"},
                        {"voltage_now", "7900000"},
                        {"voltage_min_design", "7600000"},
                        {"cycle_count", "321"},
                        {"health", "Good"}});
    }

    /// Patient: a busy machine that runs the tests is no reason to miss a battery.
    LinuxSystemFacts facts() const { return LinuxSystemFacts(folder.path().toUtf8(), std::chrono::minutes(1)); }

    /// The three battery answers as the dashboard asks for them.
    PowerSupplies battery() const
    {
        const auto system = facts();
        const auto source = system.powerSource();
        return {source, system.batteryRegistryEntry(), system.timeRemainingEstimate()};
    }

    QTemporaryDir folder;
};

TEST_F(LinuxSystemFactsTest, laptopOnItsBattery)
{
    supply("AC", {{"type", "Mains"}, {"online", "0"}});
    supply("AAA_mouse", {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "5"}, {"status", "Charging"}});
    chargeBattery("Discharging");
    const auto [source, entry, estimate] = battery();

    ASSERT_TRUE(source);
    EXPECT_THAT(source->currentCapacity, Optional(2500));
    EXPECT_THAT(source->maxCapacity, Optional(5000));
    EXPECT_THAT(source->powerSourceState, Optional(Eq("Battery Power")));
    EXPECT_THAT(source->isCharging, Optional(false));
    EXPECT_THAT(entry->designCapacity, Optional(6000));
    EXPECT_THAT(entry->cycleCount, Optional(321));
    EXPECT_THAT(entry->batteryHealth, Optional(Eq("Good")));
    EXPECT_THAT(estimate, DoubleNear(7200, 0.001));
}

TEST_F(LinuxSystemFactsTest, laptopOnExternalPower)
{
    supply("ucsi-source-1", {{"type", "USB"}, {"online", "0"}});
    supply("ucsi-source-2", {{"type", "USB"}, {"online", "1"}});
    for (const auto *status : {"Charging", "Full", "Not charging", "Discharging", "Unknown"}) {
        chargeBattery(status);
        const auto [source, entry, estimate] = battery();
        EXPECT_THAT(source->powerSourceState, Optional(Eq("AC Power"))) << status;
        EXPECT_EQ(source->isCharging.value_or(false), QByteArray(status) == "Charging") << status;
        EXPECT_EQ(estimate, -2) << status;
    }
}

TEST_F(LinuxSystemFactsTest, withoutASupplyTheBatterySaysWhereThePowerComesFrom)
{
    const auto state = [this](const char *status) {
        chargeBattery(status);
        return battery().source->powerSourceState;
    };
    EXPECT_THAT(state("Full"), Optional(Eq("AC Power")));
    EXPECT_THAT(state("Discharging"), Optional(Eq("Battery Power")));
    EXPECT_EQ(state("Unknown"), std::nullopt);
}

TEST_F(LinuxSystemFactsTest, energyOnlyFirmwareAndTwoBatteriesThatLastTogether)
{
    supply("ADP1", {{"type", "Mains"}, {"online", "0"}});
    supply("BAT0", {{"type", "Battery"},
                    {"status", "Unknown"},
                    {"energy_now", "11400000"},
                    {"energy_full", "22800000"},
                    {"energy_full_design", "24000000"},
                    {"power_now", "0"},
                    {"voltage_min_design", "11400000"},
                    {"cycle_count", "0"}});
    supply("BAT1", {{"type", "Battery"},
                    {"status", "Discharging"},
                    {"energy_now", "8600000"},
                    {"power_now", "10000000"},
                    {"voltage_now", "7200000"}});
    supply("BAT2", {{"type", "Battery"}, {"present", "0"}, {"energy_now", "99000000"}});
    const auto [source, entry, estimate] = battery();

    EXPECT_THAT(source->currentCapacity, Optional(1000));
    EXPECT_THAT(source->maxCapacity, Optional(2000));
    EXPECT_THAT(entry->designCapacity, Optional(2105));
    EXPECT_EQ(entry->cycleCount, std::nullopt) << "0 means that cycles are not counted";
    EXPECT_EQ(entry->batteryHealth, std::nullopt);
    EXPECT_THAT(estimate, DoubleNear(7200, 0.001));
}

TEST_F(LinuxSystemFactsTest, firmwareThatTellsAPercentageOnlyIsNotEmpty)
{
    supply("BAT0", {{"type", "Battery"}, {"status", "Discharging"}, {"capacity", "83"}, {"health", "Overheat"}});
    auto [source, entry, estimate] = battery();
    EXPECT_THAT(source->currentCapacity, Optional(83));
    EXPECT_THAT(source->maxCapacity, Optional(100));
    EXPECT_EQ(entry->designCapacity, std::nullopt);
    EXPECT_EQ(entry->batteryHealth, std::nullopt) << "too hot just now is no condition";
    EXPECT_EQ(estimate, -1);

    supply("BAT0", {{"charge_full", "3030000"}, {"health", "Dead"}});
    std::tie(source, entry, estimate) = [this] {
        const auto read = battery();
        return std::tuple(read.source, read.registryEntry, read.timeRemainingEstimate);
    }();
    EXPECT_EQ(*source->currentCapacity * 100 / *source->maxCapacity, 83);
    EXPECT_THAT(source->maxCapacity, Optional(3030));
    EXPECT_THAT(entry->batteryHealth, Optional(Eq("Poor")));
}

TEST_F(LinuxSystemFactsTest, desktopWithABoardThatNobodyFilledIn)
{
    supply("hidpp_battery_0", {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "55"}});
    attributes("/sys/class/dmi/id", {{"sys_vendor", "System manufacturer"},
                                     {"product_name", "System Product Name"},
                                     {"board_vendor", "Acme Inc."},
                                     {"board_name", "PRIME X570 "}});
    file("/proc/cpuinfo",
         "processor\t: 0\nvendor_id\t: AuthenticAMD\ncpu family\t: 23\n"
         "model name\t: AMD Ryzen 7 3700X 8-Core Processor\n\nprocessor\t: 1\nmodel name\t: Other\n");
    file("/proc/uptime", "93784.21 1480021.11\n");
    file("/proc/sys/kernel/hostname", "workbench\n");
    file("/etc/machine-info",
         "# typed\nPRETTY_HOSTNAME=\"Ala's \\\"big\\\" box – \xc5\x82\"\nICON_NAME=computer\n");
    file("/usr/lib/os-release", "NAME=Old\nPRETTY_NAME='Debian GNU/Linux 12 (bookworm)'\n");
    const auto system = facts();

    EXPECT_FALSE(system.powerSource()) << "a mouse's battery is not the computer's";
    EXPECT_EQ(system.timeRemainingEstimate(), -1);
    EXPECT_THAT(system.model(), Optional(Eq("Acme Inc. PRIME X570")));
    EXPECT_THAT(system.processorBrand(), Optional(Eq("AMD Ryzen 7 3700X 8-Core Processor")));
    EXPECT_EQ(system.uptime(), 93784.21);
    EXPECT_EQ(system.hostName(), "workbench");
    EXPECT_THAT(system.localizedHostName(), Optional(Eq(QStringLiteral(u"Ala's \"big\" box – ł"))));
    EXPECT_EQ(system.operatingSystemVersion(), "Debian GNU/Linux 12 (bookworm)");
}

TEST_F(LinuxSystemFactsTest, virtualMachine)
{
    attributes("/sys/class/dmi/id", {{"sys_vendor", "QEMU"}, {"product_name", "QEMU Virtual Machine"}});
    file("/etc/machine-info", "PRETTY_HOSTNAME=\"\"\n");
    EXPECT_THAT(facts().model(), Optional(Eq("QEMU Virtual Machine")));
    EXPECT_EQ(facts().localizedHostName(), std::nullopt);
    EXPECT_FALSE(facts().powerSource());
}

TEST_F(LinuxSystemFactsTest, armBoards)
{
    file("/proc/device-tree/model", QByteArray("Acme Board 5 Rev 1.0\0", 21));
    file("/proc/device-tree/compatible", QByteArray("acme,board5\0acme,chip3588\0", 26));
    EXPECT_THAT(facts().model(), Optional(Eq("Acme Board 5 Rev 1.0")));
    EXPECT_THAT(facts().processorBrand(), Optional(Eq("acme,chip3588")));

    file("/proc/cpuinfo", "processor\t: 0\nmodel name\t: ARMv8 Processor rev 0 (v8l)\nCPU implementer\t: 0x41\n"
                          "CPU part\t: 0xd05\n\nprocessor\t: 1\nCPU implementer\t: 0x41\nCPU part\t: 0xd05\n\n"
                          "processor\t: 2\nCPU implementer\t: 0x41\nCPU part\t: 0xd0b\n\nHardware\t: Chip\n");
    EXPECT_THAT(facts().processorBrand(), Optional(Eq("ARM Cortex-A55 + ARM Cortex-A76")));
    file("/proc/cpuinfo", "processor\t: 0\nCPU implementer\t: 0x99\nCPU part\t: 0x001\n\nHardware\t: BCM2835\n");
    EXPECT_THAT(facts().processorBrand(), Optional(Eq("BCM2835")));
}

TEST_F(LinuxSystemFactsTest, usedAndFreePagesAddUpToTheMemory)
{
    file("/proc/meminfo",
         "MemTotal:       16000000 kB\nMemFree:         1000000 kB\nMemAvailable:    9000000 kB\n"
         "Zswap:             40000 kB\nAnonPages:       4000000 kB\nShmem:            500000 kB\n");
    file("/sys/block/zram0/mm_stat", " 40960000  8192000 10240000        0 12288000      102        0        0\n");
    file("/sys/block/sda/mm_stat", "1 1 99999999999 1\n");
    const auto system = facts();
    EXPECT_EQ(system.physicalMemory(), 16384000000U);
    const auto pages = *system.virtualMemoryStatistics();
    const auto kibibytes = system.pageSize() / 1024;

    EXPECT_EQ(pages.freeCount * kibibytes, 1000000U);
    EXPECT_EQ(pages.speculativeCount * kibibytes, 8000000U);
    EXPECT_EQ(pages.compressorPageCount * kibibytes, 50000U);
    EXPECT_EQ(pages.activeCount * kibibytes, 4500000U);
    EXPECT_EQ(pages.wiredCount * kibibytes, 2450000U);

    // More memory in reserve than is free, and more anonymous pages than can be.
    file("/proc/meminfo", "MemTotal: 1000 kB\nMemFree: 900 kB\nMemAvailable: 800 kB\nAnonPages: 99999 kB\n");
    const auto odd = *facts().virtualMemoryStatistics();
    EXPECT_EQ((odd.freeCount + odd.speculativeCount) * kibibytes, 800U);
    EXPECT_EQ((odd.activeCount + odd.wiredCount + odd.compressorPageCount) * kibibytes, 200U);
}

TEST_F(LinuxSystemFactsTest, filesOfNoUseAreAbsentValuesAndAreNotWaitedFor)
{
    const QByteArray supplyFolder("/sys/class/power_supply/BAT0/");
    const QByteArray paths[] = {"/etc/machine-info",
                                "/etc/os-release",
                                "/proc/sys/kernel/hostname",
                                "/proc/cpuinfo",
                                "/proc/meminfo",
                                "/proc/uptime",
                                "/proc/device-tree/model",
                                "/sys/class/dmi/id/product_name",
                                "/sys/block/zram0/mm_stat",
                                supplyFolder + "present",
                                supplyFolder + "status",
                                supplyFolder + "charge_now",
                                supplyFolder + "charge_full",
                                supplyFolder + "energy_now",
                                supplyFolder + "voltage_now",
                                supplyFolder + "cycle_count",
                                supplyFolder + "current_now"};
    const auto expectNothing = [&](const char *what) {
        file(supplyFolder + "type", "Battery\n");
        const auto system = facts();
        EXPECT_EQ(system.localizedHostName(), std::nullopt) << what;
        EXPECT_EQ(system.processorBrand(), std::nullopt) << what;
        EXPECT_EQ(system.virtualMemoryStatistics(), std::nullopt) << what;
        EXPECT_EQ(system.physicalMemory(), 0U) << what;
        EXPECT_EQ(system.uptime(), 0) << what;
        EXPECT_FALSE(system.operatingSystemVersion().isEmpty()) << what;
        const auto source = system.powerSource();
        ASSERT_TRUE(source) << what;
        EXPECT_EQ(source->currentCapacity, std::nullopt) << what;
        EXPECT_EQ(source->maxCapacity, std::nullopt) << what;
        EXPECT_EQ(system.batteryRegistryEntry()->cycleCount, std::nullopt) << what;
        EXPECT_EQ(system.timeRemainingEstimate(), -1) << what;
    };

    expectNothing("missing");
    for (const auto &path : paths)
        file(path, "");
    expectNothing("empty");
    for (const auto &path : paths)
        file(path, "\xff\xfe-99999999999999999999: kB\n:\n=\n-5\n");
    expectNothing("garbage");
    for (const auto &path : paths)
        file(path, "", qint64(1) << 40);
    expectNothing("a thousand gigabytes");
    for (const auto &path : paths) {
        ASSERT_TRUE(QFile::remove(hostPath(path)));
        ASSERT_EQ(::mkfifo(hostPath(path).toUtf8().constData(), 0600), 0);
    }
    expectNothing("pipes that nobody writes to");
}

} // namespace
