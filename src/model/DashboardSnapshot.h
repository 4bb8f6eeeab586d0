#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// The computer itself; every text is ready for display.
struct ComputerInfo
{
    QString computerName;
    QString modelIdentifier;
    QString operatingSystem;
    QString processor;
    /// The installed memory as a size text.
    QString memory;
    /// When the system was started.
    std::optional<QDateTime> bootDate;
};

struct BatteryInfo
{
    /// Charge, 0 to 100.
    int percentage;
    bool isCharging;
    QString powerSource;
    QString timeRemaining;
    /// 0 to 100.
    std::optional<int> healthPercentage;
    std::optional<QString> condition;
    std::optional<qint64> cycleCount;
    /// Capacities in mAh.
    std::optional<qint64> currentCapacity;
    std::optional<qint64> maxCapacity;
    std::optional<qint64> designCapacity;
};

/// The startup volume.
struct StorageInfo
{
    QString volumeName;
    qint64 totalBytes;
    qint64 freeBytes;
};

/// Physical memory in bytes.
struct MemoryInfo
{
    quint64 totalBytes;
    std::optional<quint64> usedBytes;
    std::optional<quint64> freeBytes;
    std::optional<quint64> wiredBytes;
    std::optional<quint64> activeBytes;
    std::optional<quint64> compressedBytes;
};

/// Everything that the dashboard shows at one moment.
struct DashboardSnapshot
{
    ComputerInfo computer;
    /// Absent on a computer without a battery, or when the system does not report one.
    std::optional<BatteryInfo> battery;
    StorageInfo storage;
    MemoryInfo memory;
};
