#pragma once

#include "SystemFacts.h"

/// The facts of a made-up computer: whatever the fields say. As it is made, nothing can be read.
class FakeSystemFacts : public SystemFacts
{
public:
    std::optional<QString> localizedHostName() const override { return localizedHostNameValue; }
    QString hostName() const override { return hostNameValue; }
    std::optional<QString> model() const override { return modelValue; }
    QString operatingSystemVersion() const override { return operatingSystemVersionValue; }
    std::optional<QString> processorBrand() const override { return processorBrandValue; }
    quint64 physicalMemory() const override { return physicalMemoryValue; }
    double uptime() const override { return ++timesRead, uptimeValue; }
    PowerReading powerReading() const override { return power; }
    std::optional<QFuture<void>> latePowerReading() const override { return latePowerReadingValue; }
    quint64 pageSize() const override { return pageSizeValue; }
    std::optional<VirtualMemoryStatistics> virtualMemoryStatistics() const override { return pagesValue; }

    std::optional<QString> localizedHostNameValue;
    QString hostNameValue;
    std::optional<QString> modelValue;
    QString operatingSystemVersionValue;
    std::optional<QString> processorBrandValue;
    quint64 physicalMemoryValue = 0;
    double uptimeValue = 0;
    std::optional<QFuture<void>> latePowerReadingValue;
    PowerReading power;
    quint64 pageSizeValue = 0;
    std::optional<VirtualMemoryStatistics> pagesValue;
    /// How often the whole was read.
    mutable int timesRead = 0;
};
