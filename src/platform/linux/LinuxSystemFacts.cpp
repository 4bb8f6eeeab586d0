#include "LinuxSystemFacts.h"

#include "KeyedText.h"
#include "PowerSupplies.h"
#include "ProcessorName.h"

#include <QSysInfo>

#include <algorithm>
#include <unistd.h>

namespace {

/// Bytes; absent when meminfo has no such line or a number that no memory has.
std::optional<quint64> memory(const QByteArray &meminfo, const char *key)
{
    constexpr quint64 mostKibibytes = quint64(1) << 44;
    auto value = colonValue(meminfo, key).value_or(QByteArrayView());
    if (value.endsWith("kB"))
        value.chop(2);
    bool isNumber = false;
    const auto kibibytes = value.trimmed().toByteArray().toULongLong(&isNumber);
    return isNumber && kibibytes <= mostKibibytes ? std::optional<quint64>(kibibytes * 1024) : std::nullopt;
}

/// What makers leave in fields that they did not fill in; compared without case.
bool isPlaceholder(const QString &text)
{
    constexpr const char *placeholders[] = {
        "To Be Filled By O.E.M.",
        "System Product Name",
        "System manufacturer",
        "System Version",
        "Default string",
        "Not Applicable",
        "Not Specified",
        "Not Available",
        "Undefined",
        "Unknown",
        "Invalid",
        "O.E.M.",
        "OEM",
        "None",
        "N/A",
    };
    return std::ranges::any_of(placeholders, [&](const char *placeholder) {
        return text.compare(QLatin1String(placeholder), Qt::CaseInsensitive) == 0;
    });
}

/// "Maker Product", but the maker only once.
QString madeBy(const QString &maker, const QString &product)
{
    return maker.isEmpty() || product.startsWith(maker, Qt::CaseInsensitive) ? product : maker + u' ' + product;
}

} // namespace

LinuxSystemFacts::LinuxSystemFacts(const QByteArray &root, std::chrono::milliseconds patienceForBatteries)
    : m_files(root), m_powerReadings([files = m_files] { return readPowerSupplies(files); }, patienceForBatteries)
{
}

std::optional<QString> LinuxSystemFacts::localizedHostName() const
{
    return assignedValue(m_files.read("/etc/machine-info").value_or(QByteArray()), "PRETTY_HOSTNAME");
}

QString LinuxSystemFacts::hostName() const
{
    const auto name = m_files.line("/proc/sys/kernel/hostname");
    return name ? *name : QSysInfo::machineHostName();
}

std::optional<QString> LinuxSystemFacts::model() const
{
    const auto dmi = [this](const QByteArray &field) {
        const auto text = m_files.line("/sys/class/dmi/id/" + field).value_or(QString());
        return isPlaceholder(text) ? QString() : text;
    };
    if (const auto product = dmi("product_name"); !product.isEmpty())
        return madeBy(dmi("sys_vendor"), product);
    if (const auto board = dmi("board_name"); !board.isEmpty())
        return madeBy(dmi("board_vendor"), board);
    return m_files.line("/proc/device-tree/model");
}

QString LinuxSystemFacts::operatingSystemVersion() const
{
    for (const auto *path : {"/etc/os-release", "/usr/lib/os-release"}) {
        if (const auto name = assignedValue(m_files.read(path).value_or(QByteArray()), "PRETTY_NAME"))
            return *name;
    }
    return QSysInfo::prettyProductName();
}

std::optional<QString> LinuxSystemFacts::processorBrand() const
{
    const auto cpuinfo = m_files.read("/proc/cpuinfo").value_or(QByteArray());
    const auto compatible = m_files.read("/proc/device-tree/compatible").value_or(QByteArray());
    return processorName(cpuinfo, compatible);
}

quint64 LinuxSystemFacts::physicalMemory() const
{
    return memory(m_files.read("/proc/meminfo").value_or(QByteArray()), "MemTotal").value_or(0);
}

double LinuxSystemFacts::uptime() const
{
    constexpr double longest = 1e10;
    const auto text = m_files.read("/proc/uptime").value_or(QByteArray());
    const auto seconds = text.left(text.indexOf(' ')).toDouble();
    return seconds > 0 && seconds < longest ? seconds : 0;
}

PowerReading LinuxSystemFacts::powerReading() const
{
    return m_powerReadings.take().value_or(PowerReading{});
}

quint64 LinuxSystemFacts::pageSize() const
{
    return static_cast<quint64>(std::max(::sysconf(_SC_PAGESIZE), 0L));
}

std::optional<VirtualMemoryStatistics> LinuxSystemFacts::virtualMemoryStatistics() const
{
    const auto meminfo = m_files.read("/proc/meminfo").value_or(QByteArray());
    const auto total = memory(meminfo, "MemTotal");
    const auto available = memory(meminfo, "MemAvailable");
    const auto unused = memory(meminfo, "MemFree");
    if (!total || !available || !unused || *available > *total || pageSize() == 0)
        return std::nullopt;

    const auto used = *total - *available;
    const auto compressor = std::min(compressedBytes(meminfo), used);
    const auto programs = memory(meminfo, "AnonPages").value_or(0) + memory(meminfo, "Shmem").value_or(0);
    const auto active = std::min(programs, used - compressor);
    const auto free = std::min(*unused, *available);
    return VirtualMemoryStatistics{
        .freeCount = free / pageSize(),
        .speculativeCount = (*available - free) / pageSize(),
        .activeCount = active / pageSize(),
        .wiredCount = (used - compressor - active) / pageSize(),
        .compressorPageCount = compressor / pageSize(),
    };
}

quint64 LinuxSystemFacts::compressedBytes(const QByteArray &meminfo) const
{
    auto bytes = memory(meminfo, "Zswap").value_or(0);
    for (const auto &device : m_files.names("/sys/block")) {
        if (!device.startsWith("zram"))
            continue;
        // orig_data_size, compr_data_size, mem_used_total, …: what the compressed pages occupy is the third.
        const auto fields = m_files.line("/sys/block/" + device + "/mm_stat").value_or(QString()).simplified();
        bytes += std::min(fields.section(u' ', 2, 2).toULongLong(), quint64(1) << 54);
    }
    return bytes;
}
