#pragma once

#include "LatestReading.h"
#include "SystemFacts.h"
#include "SystemFiles.h"

/// The facts as Linux tells them. Each is read anew when it is asked for, from
///
/// | fact                   | source                                        | why this one |
/// |------------------------|-----------------------------------------------|-----------------------------------------------------------------------|
/// | localizedHostName      | PRETTY_HOSTNAME of /etc/machine-info          | where the desktops keep what the user typed; hostnamed only serves it |
/// | hostName               | /proc/sys/kernel/hostname                     | the kernel's own answer                                               |
/// | model                  | sys_vendor, product_name of /sys/class/dmi/id | the firmware's own words                                              |
/// |                        | else board_* there                            | where nobody filled the product in                                    |
/// |                        | else /proc/device-tree/model                  | boards without DMI have a device tree                                 |
/// | operatingSystemVersion | PRETTY_NAME of /etc/os-release                | made for showing                                                      |
/// |                        | else of /usr/lib/os-release                   | when the first is missing                                             |
/// | processorBrand         | /proc/cpuinfo                                 | see ProcessorName.h                                                   |
/// |                        | else /proc/device-tree/compatible             | its last entry                                                        |
/// | physicalMemory         | MemTotal of /proc/meminfo                     | what programs can have: used and free add up to it                    |
/// | uptime                 | /proc/uptime                                  | counts from the boot, sleep included                                  |
/// | battery and its time   | /sys/class/power_supply                       | see PowerSupplies.h                                                   |
/// | pageSize               | sysconf                                       | what the C library has from the kernel                                |
///
/// Pages: used (wired + active + compressor) is MemTotal - MemAvailable, and free (free + speculative) is
/// MemAvailable, the kernel's own estimate of what a program could still get without swapping, as `free` shows it.
///
/// | pages       | from                                  | because                                              |
/// |-------------|---------------------------------------|------------------------------------------------------|
/// | free        | MemFree, at most MemAvailable         | holds nothing; a part is the kernel's own reserve    |
/// | speculative | the rest of MemAvailable              | cached files that are given up as soon as needed     |
/// | compressor  | mem_used_total of each zram, Zswap    | the memory that compressed pages occupy              |
/// | active      | AnonPages + Shmem                     | what programs hold and would have to be swapped out  |
/// | wired       | the rest of what is used              | the kernel, its drivers, page tables, huge pages     |
///
/// Nothing here waits. The files of /proc, /etc and DMI come from memory. A battery's attributes may be asked of
/// an embedded controller, which takes milliseconds and may hang: they are read on a thread of their own, waited
/// for 3 ms, and else taken from the last reading until the new one has ended (`LatestReading`).
/// No bus is asked.
class LinuxSystemFacts : public SystemFacts
{
public:
    /// `root` is put in front of every path: empty for this computer, a folder without a trailing separator in
    /// tests. `patienceForBatteries` is how long a battery is waited for.
    explicit LinuxSystemFacts(const QByteArray &root = {},
                              std::chrono::milliseconds patienceForBatteries = std::chrono::milliseconds(3));

    std::optional<QString> localizedHostName() const override;
    std::optional<QString> model() const override;
    QString hostName() const override;
    QString operatingSystemVersion() const override;
    std::optional<QString> processorBrand() const override;
    quint64 physicalMemory() const override;
    double uptime() const override;

    PowerReading powerReading() const override;
    std::optional<QFuture<void>> latePowerReading() const override { return m_powerReadings.late(); }

    quint64 pageSize() const override;
    std::optional<VirtualMemoryStatistics> virtualMemoryStatistics() const override;

private:
    quint64 compressedBytes(const QByteArray &meminfo) const;

    SystemFiles m_files;
    LatestReading<PowerReading> m_powerReadings;
};
