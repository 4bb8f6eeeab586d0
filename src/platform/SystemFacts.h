#pragma once

#include <QFuture>
#include <QString>
#include <QVariantMap>

#include <optional>

/// The power source that is listed first, as the system describes it. Absent: not reported, or not of its type.
struct PowerSourceDescription
{
    /// mAh; or the percentage, with 100 for `maxCapacity`, of a battery that tells nothing else.
    std::optional<qint64> currentCapacity;
    /// mAh, when fully charged now.
    std::optional<qint64> maxCapacity;
    /// "AC Power", "Battery Power" or what else the system says.
    std::optional<QString> powerSourceState;
    std::optional<bool> isCharging;
    /// Whether the capacities are percent, and tell nothing of the battery's age.
    bool isPercentage = false;
};

/// What the battery's own registry entry holds.
struct BatteryRegistryEntry
{
    std::optional<qint64> cycleCount;
    /// mAh, when it was new.
    std::optional<qint64> designCapacity;
    std::optional<QString> batteryHealth;
    std::optional<QString> permanentFailureStatus;
};

/// What the power sources tell at one moment.
struct PowerReading
{
    /// The computer's first power source; absent when it has none.
    std::optional<PowerSourceDescription> source;
    /// Absent when the computer has no battery that keeps such an entry.
    std::optional<BatteryRegistryEntry> registryEntry;
    /// Seconds of work left, of all batteries together; -1 while it is being computed, -2 on external power.
    double timeRemainingEstimate = -1;
};

/// Counts of memory pages.
struct VirtualMemoryStatistics
{
    quint64 freeCount;
    quint64 speculativeCount;
    quint64 activeCount;
    quint64 wiredCount;
    /// Pages that the compressor occupies.
    quint64 compressorPageCount;
};

/// Facts about the computer. Called on the main thread: every answer is short and none waits for a device or a
/// bus.
class SystemFacts
{
public:
    virtual ~SystemFacts() = default;

    /// The name that the user gave the computer; absent when there is none.
    virtual std::optional<QString> localizedHostName() const = 0;
    /// The network name of the computer.
    virtual QString hostName() const = 0;
    /// The maker's name of the model; it may be blank. Absent when it cannot be read.
    virtual std::optional<QString> model() const = 0;
    virtual QString operatingSystemVersion() const = 0;
    /// Absent when it cannot be read.
    virtual std::optional<QString> processorBrand() const = 0;
    /// Bytes that programs and the system share; 0 when not known.
    virtual quint64 physicalMemory() const = 0;
    /// Seconds since the system was started; 0 when not known.
    virtual double uptime() const = 0;

    /// Where the firmware is slow, what it told before; nothing before it told anything.
    virtual PowerReading powerReading() const = 0;
    /// Finished when the firmware has told what the last `powerReading` did not wait for, so that asking again is worth
    /// it; absent when that did not have to wait. One that hangs never finishes.
    virtual std::optional<QFuture<void>> latePowerReading() const = 0;

    /// Bytes; 0 when not known.
    virtual quint64 pageSize() const = 0;
    /// Absent when they cannot be read.
    virtual std::optional<VirtualMemoryStatistics> virtualMemoryStatistics() const = 0;
};
