#include "SystemInfoService.h"

#include "ByteCount.h"
#include "FileSystem.h"
#include "SystemFacts.h"

#include <QStringView>

#include <algorithm>

namespace {

/// In double precision and cut off as it comes, so 29 of 100 may be 28. Absent when it cannot be computed.
std::optional<int> clampedPercentage(std::optional<qint64> part, std::optional<qint64> whole)
{
    if (!part || !whole || *whole < 1)
        return std::nullopt;
    const auto percentage = static_cast<double>(*part) / static_cast<double>(*whole) * 100;
    return static_cast<int>(std::clamp(percentage, 0.0, 100.0));
}

/// A text that the firmware or the kernel keeps in a fixed buffer: it ends at the first zero, and blanks around it
/// are no part of it.
QString firmwareText(const QString &text)
{
    return text.left(text.indexOf(QChar::Null)).trimmed();
}

QString powerSourceText(const std::optional<QString> &state)
{
    if (!state)
        return QStringLiteral("Unknown");
    if (*state == QLatin1String("AC Power"))
        return QStringLiteral("Power adapter");
    if (*state == QLatin1String("Battery Power"))
        return QStringLiteral("Battery");
    return *state;
}

QString timeRemainingText(double estimate, bool isCharging)
{
    constexpr auto unlimited = -2.0;
    // A day that no battery lasts until, and far inside of what a whole number holds.
    constexpr auto longestEstimate = 1e12;

    if (estimate == unlimited)
        return isCharging ? QStringLiteral("Power adapter") : QStringLiteral("Unlimited");
    if (!(estimate >= 0 && estimate < longestEstimate))
        return QStringLiteral("Unknown");
    const auto minutes = static_cast<qint64>(estimate / 60);
    return minutes < 60 ? QStringLiteral("%1 min").arg(minutes)
                        : QStringLiteral("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}

} // namespace

SystemInfoService::SystemInfoService(const FileSystem &fileSystem, const SystemFacts &facts)
    : m_fileSystem(fileSystem), m_facts(facts)
{
}

DashboardSnapshot SystemInfoService::snapshot() const
{
    // A braced list is evaluated from left to right.
    return {computerInfo(), batteryInfo(), storageInfo(), memoryInfo()};
}

ComputerInfo SystemInfoService::computerInfo() const
{
    const auto name = m_facts.localizedHostName();
    const auto model = m_facts.model();
    const auto processor = m_facts.processorBrand();
    const auto uptime = m_facts.uptime();

    ComputerInfo info;
    info.computerName = name ? *name : m_facts.hostName();
    info.modelIdentifier = model ? firmwareText(*model) : QStringLiteral("Unknown Mac");
    info.operatingSystem = m_facts.operatingSystemVersion();
    info.processor = processor ? firmwareText(*processor) : QStringLiteral("Unknown CPU");
    info.memory = formattedByteCount(static_cast<qint64>(m_facts.physicalMemory()), ByteCountStyle::memory);
    if (uptime > 0)
        info.bootDate = QDateTime::currentDateTime().addMSecs(-static_cast<qint64>(uptime * 1000));
    return info;
}

std::optional<BatteryInfo> SystemInfoService::batteryInfo() const
{
    const auto power = m_facts.powerReading();
    const auto &source = power.source;
    if (!source)
        return std::nullopt;
    const auto entry = power.registryEntry.value_or(BatteryRegistryEntry{});
    const auto isCharging = source->isCharging.value_or(false);
    const auto health =
        source->isPercentage ? std::nullopt : clampedPercentage(source->maxCapacity, entry.designCapacity);

    return BatteryInfo{
        .percentage = clampedPercentage(source->currentCapacity, source->maxCapacity).value_or(0),
        .isCharging = isCharging,
        .powerSource = powerSourceText(source->powerSourceState),
        .timeRemaining = timeRemainingText(power.timeRemainingEstimate, isCharging),
        .healthPercentage = health,
        .condition = entry.batteryHealth ? entry.batteryHealth : entry.permanentFailureStatus,
        .cycleCount = entry.cycleCount,
        .currentCapacity = source->currentCapacity,
        .maxCapacity = source->maxCapacity,
        .designCapacity = entry.designCapacity,
    };
}

StorageInfo SystemInfoService::storageInfo() const
{
    const auto values = m_fileSystem.volumeValues(Url("/")).value_or(VolumeValues{});
    const auto available = values.availableCapacityForImportantUsage ? values.availableCapacityForImportantUsage
                                                                     : values.availableCapacity;
    return {values.name.value_or(QStringLiteral("Macintosh HD")), values.totalCapacity.value_or(0),
            available.value_or(0)};
}

MemoryInfo SystemInfoService::memoryInfo() const
{
    MemoryInfo info{};
    info.totalBytes = m_facts.physicalMemory();
    const auto pageSize = m_facts.pageSize();
    const auto pages = m_facts.virtualMemoryStatistics();
    if (!pages || pageSize == 0)
        return info;

    info.wiredBytes = pages->wiredCount * pageSize;
    info.activeBytes = pages->activeCount * pageSize;
    info.compressedBytes = pages->compressorPageCount * pageSize;
    info.usedBytes = std::min(info.totalBytes, *info.wiredBytes + *info.activeBytes + *info.compressedBytes);
    info.freeBytes = (pages->freeCount + pages->speculativeCount) * pageSize;
    return info;
}
