#include "LinuxSystemFacts.h"

#include "TemporaryDisk.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <string>
#include <sys/stat.h>

using testing::AllOf;
using testing::EndsWith;
using testing::Eq;
using testing::FieldsAre;
using testing::Optional;
using testing::StartsWith;

/// A disk that holds what another computer's /proc, /sys and /etc would.
struct LinuxSystemFactsTest : testing::Test
{
    /// Files in the folder `in`, each a name, a space and what it holds: "online 1, type Mains".
    void attributes(const QByteArray &in, const QString &values)
    {
        for (const auto &value : values.split(", "))
            disk.file(in + '/' + value.section(' ', 0, 0).toUtf8(), value.section(' ', 1).toUtf8() + '\n');
    }
    void supply(const QByteArray &name, const QString &values)
    {
        attributes("/sys/class/power_supply/" + name, values);
    }
    void chargeBattery(const QString &status)
    {
        supply("BAT0", "type Battery, present 1, charge_now 2500000, charge_full 5000400, "
                       "charge_full_design 6000000, current_now -1250000, voltage_now 7900000, "
                       "voltage_min_design 7600000, cycle_count 321, health Good, status "
                           + status);
    }

    /// Patient: a busy machine that runs the tests is no reason to miss a battery.
    LinuxSystemFacts facts() const
    {
        return LinuxSystemFacts(disk.root().hostPath(Url("/")), std::chrono::minutes(1));
    }

    /// The battery as the dashboard asks for it; "-" for what is absent. The capacities are those of the moment,
    /// when full, and by design.
    std::string battery() const
    {
        const auto power = facts().powerReading();
        const auto &source = power.source;
        if (!source)
            return "none";
        const auto entry = power.registryEntry.value_or(BatteryRegistryEntry{});
        const auto number = [](std::optional<qint64> value) {
            return value ? QString::number(*value) : QString("-");
        };
        return QString("%1/%2/%3 mAh, %4 cycles, %5, %6, charging %7, %8 s")
            .arg(number(source->currentCapacity), number(source->maxCapacity), number(entry.designCapacity),
                 number(entry.cycleCount), entry.batteryHealth.value_or("-"),
                 source->powerSourceState.value_or("-"), number(source->isCharging),
                 QString::number(power.timeRemainingEstimate))
            .toStdString();
    }

    TemporaryDisk disk;
};

TEST_F(LinuxSystemFactsTest, whereThePowerComesFromWithAndWithoutASupply)
{
    const auto expect = [this](const QString &status, const std::string &words) {
        chargeBattery(status);
        EXPECT_THAT(battery(), EndsWith(words)) << qPrintable(status);
    };
    supply("AAA_mouse", "type Battery, scope Device, capacity 5, status Charging");
    expect("Full", "Good, AC Power, charging 0, -2 s");
    expect("Discharging", "Good, Battery Power, charging 0, 7200 s");
    expect("Unknown", "Good, -, charging -, 7200 s");
    supply("AC", "type Mains, online 0");
    expect("Discharging", "2500/5000/6000 mAh, 321 cycles, Good, Battery Power, charging 0, 7200 s");
    supply("ucsi-source-1", "type USB, online 0");
    supply("ucsi-source-2", "type USB, online 1");
    expect("Charging", "AC Power, charging 1, -2 s");
    expect("Not charging", "AC Power, charging 0, -2 s");
    expect("Discharging", "AC Power, charging 0, -2 s");
    expect("Unknown", "AC Power, charging -, -2 s");
}

TEST_F(LinuxSystemFactsTest, energyOnlyFirmwareAndTwoBatteriesThatLastTogether)
{
    supply("ADP1", "type Mains, online 0");
    // 0 cycles means that they are not counted.
    supply("BAT0", "type Battery, status Unknown, energy_now 11400000, energy_full 22800000, "
                   "energy_full_design 24000000, power_now 0, voltage_min_design 11400000, cycle_count 0");
    supply("BAT1",
           "type Battery, status Discharging, energy_now 8600000, power_now 10000000, voltage_now 7200000");
    supply("BAT2", "type Battery, present 0, energy_now 99000000");
    EXPECT_EQ(battery(), "1000/2000/2105 mAh, - cycles, -, Battery Power, charging -, 7200 s");
}

TEST_F(LinuxSystemFactsTest, firmwareThatTellsAPercentageOnlyIsNotEmpty)
{
    // Too hot just now is no condition.
    supply("BAT0", "type Battery, status Discharging, capacity 83, health Overheat");
    EXPECT_EQ(battery(), "83/100/- mAh, - cycles, -, Battery Power, charging 0, -1 s");
    supply("BAT0", "charge_full_design 6000000");
    EXPECT_TRUE(facts().powerReading().source->isPercentage) << "no share of what was designed";
    // 83 % again, when the fraction is cut off.
    supply("BAT0", "charge_full 3030000, health Dead");
    EXPECT_EQ(battery(), "2515/3030/6000 mAh, - cycles, Poor, Battery Power, charging 0, -1 s");
    EXPECT_FALSE(facts().powerReading().source->isPercentage);
}

TEST_F(LinuxSystemFactsTest, desktopWithABoardThatNobodyFilledInAndAVirtualMachine)
{
    supply("hidpp_battery_0", "type Battery, scope Device, capacity 55");
    attributes("/sys/class/dmi/id", "sys_vendor System manufacturer, product_name System Product Name, "
                                    "board_vendor Acme Inc., board_name PRIME X570 ");
    disk.file("/proc/cpuinfo",
              "processor\t: 0\nvendor_id\t: AuthenticAMD\ncpu family\t: 23\n"
              "model name\t: AMD Ryzen 7 3700X 8-Core Processor\n\nprocessor\t: 1\nmodel name\t: Other\n");
    disk.file("/proc/uptime", "93784.21 1480021.11\n");
    disk.file("/proc/sys/kernel/hostname", "workbench\n");
    disk.file("/etc/machine-info",
              "# typed\nPRETTY_HOSTNAME=\"Ala's \\\"big\\\" box – \xc5\x82\"\nICON_NAME=computer\n");
    disk.file("/usr/lib/os-release", "NAME=Old\nPRETTY_NAME='Debian GNU/Linux 12 (bookworm)'\n");
    const auto system = facts();

    EXPECT_FALSE(system.powerReading().source) << "a mouse's battery is not the computer's";
    EXPECT_EQ(system.powerReading().timeRemainingEstimate, -1);
    EXPECT_THAT(system.model(), Optional(Eq("Acme Inc. PRIME X570")));
    EXPECT_THAT(system.processorBrand(), Optional(Eq("AMD Ryzen 7 3700X 8-Core Processor")));
    EXPECT_EQ(system.uptime(), 93784.21);
    EXPECT_EQ(system.hostName(), "workbench");
    EXPECT_THAT(system.localizedHostName(), Optional(Eq(QStringLiteral(u"Ala's \"big\" box – ł"))));
    EXPECT_EQ(system.operatingSystemVersion(), "Debian GNU/Linux 12 (bookworm)");

    // A virtual machine with the same files.
    attributes("/sys/class/dmi/id", "sys_vendor QEMU, product_name QEMU Virtual Machine");
    disk.file("/etc/machine-info", "PRETTY_HOSTNAME=\"\"\n");
    EXPECT_THAT(facts().model(), Optional(Eq("QEMU Virtual Machine")));
    EXPECT_EQ(facts().localizedHostName(), std::nullopt);
}

TEST_F(LinuxSystemFactsTest, armBoards)
{
    disk.file("/proc/device-tree/model", QByteArray("Acme Board 5 Rev 1.0\0", 21));
    disk.file("/proc/device-tree/compatible", QByteArray("acme,board5\0acme,chip3588\0", 26));
    EXPECT_THAT(facts().model(), Optional(Eq("Acme Board 5 Rev 1.0")));
    EXPECT_THAT(facts().processorBrand(), Optional(Eq("acme,chip3588")));

    disk.file("/proc/cpuinfo",
              "processor\t: 0\nmodel name\t: ARMv8 Processor rev 0 (v8l)\nCPU implementer\t: 0x41\n"
              "CPU part\t: 0xd05\n\nprocessor\t: 1\nCPU implementer\t: 0x41\nCPU part\t: 0xd05\n\n"
              "processor\t: 2\nCPU implementer\t: 0x41\nCPU part\t: 0xd0b\n\nHardware\t: Chip\n");
    EXPECT_THAT(facts().processorBrand(), Optional(Eq("ARM Cortex-A55 + ARM Cortex-A76")));
    disk.file("/proc/cpuinfo",
              "processor\t: 0\nCPU implementer\t: 0x99\nCPU part\t: 0x001\n\nHardware\t: BCM2835\n");
    EXPECT_THAT(facts().processorBrand(), Optional(Eq("BCM2835")));
}

TEST_F(LinuxSystemFactsTest, usedAndFreePagesAddUpToTheMemory)
{
    disk.file("/proc/meminfo",
              "MemTotal:       16000000 kB\nMemFree:         1000000 kB\nMemAvailable:    9000000 kB\n"
              "Zswap:             40000 kB\nAnonPages:       4000000 kB\nShmem:            500000 kB\n");
    disk.file("/sys/block/zram0/mm_stat",
              " 40960000  8192000 10240000        0 12288000      102        0        0\n");
    disk.file("/sys/block/sda/mm_stat", "1 1 99999999999 1\n");
    const auto system = facts();
    EXPECT_EQ(system.physicalMemory(), 16384000000U);
    const auto page = system.pageSize() / 1024;
    EXPECT_THAT(system.virtualMemoryStatistics(),
                Optional(FieldsAre(1000000 / page, 8000000 / page, 4500000 / page, 2450000 / page, 50000 / page)));

    // More memory in reserve than is free, and more anonymous pages than can be.
    disk.file("/proc/meminfo", "MemTotal: 1000 kB\nMemFree: 900 kB\nMemAvailable: 800 kB\nAnonPages: 99999 kB\n");
    const auto odd = *facts().virtualMemoryStatistics();
    EXPECT_EQ((odd.freeCount + odd.speculativeCount) * page, 800U);
    EXPECT_EQ((odd.activeCount + odd.wiredCount + odd.compressorPageCount) * page, 200U);
}

TEST_F(LinuxSystemFactsTest, filesOfNoUseAreAbsentValuesAndAreNotWaitedFor)
{
    auto paths =
        QByteArray("/etc/machine-info /etc/os-release /proc/sys/kernel/hostname /proc/cpuinfo /proc/meminfo "
                   "/proc/uptime /proc/device-tree/model /sys/class/dmi/id/product_name "
                   "/sys/block/zram0/mm_stat")
            .split(' ');
    for (const auto *attribute : {"present", "status", "charge_now", "charge_full", "energy_now", "voltage_now",
                                  "cycle_count", "current_now"})
        paths.append(QByteArray("/sys/class/power_supply/BAT0/") + attribute);
    const auto expectNothing = [&](const char *what) {
        SCOPED_TRACE(what);
        supply("BAT0", "type Battery");
        const auto system = facts();
        EXPECT_EQ(system.localizedHostName(), std::nullopt);
        EXPECT_EQ(system.processorBrand(), std::nullopt);
        EXPECT_EQ(system.virtualMemoryStatistics(), std::nullopt);
        EXPECT_EQ(system.physicalMemory(), 0U);
        EXPECT_EQ(system.uptime(), 0);
        EXPECT_FALSE(system.operatingSystemVersion().isEmpty());
        EXPECT_THAT(battery(), AllOf(StartsWith("-/-/- mAh, - cycles, -, "), EndsWith(", -1 s")));
    };

    expectNothing("missing");
    for (const auto &path : paths)
        disk.file(path);
    expectNothing("empty");
    for (const auto &path : paths)
        disk.file(path, "\xff\xfe-99999999999999999999: kB\n:\n=\n-5\n");
    expectNothing("garbage");
    for (const auto &path : paths)
        std::filesystem::resize_file(disk.host(path), uintmax_t(1) << 40);
    expectNothing("a thousand gigabytes");
    for (const auto &path : paths) {
        std::filesystem::remove(disk.host(path));
        ASSERT_EQ(::mkfifo(disk.host(path).c_str(), 0600), 0);
    }
    expectNothing("pipes that nobody writes to");
}
