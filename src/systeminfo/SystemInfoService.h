#pragma once

#include "DashboardSnapshot.h"

class FileSystem;
class SystemFacts;

/// Gathers the facts that the dashboard shows. Called on the main thread; never fails: what cannot be read takes a
/// fixed fallback or is absent. Stateless.
class SystemInfoService
{
public:
    SystemInfoService(const FileSystem &fileSystem, const SystemFacts &facts);

    DashboardSnapshot snapshot() const;

    ComputerInfo computerInfo() const;
    std::optional<BatteryInfo> batteryInfo() const;
    StorageInfo storageInfo() const;
    MemoryInfo memoryInfo() const;

private:
    const FileSystem &m_fileSystem;
    const SystemFacts &m_facts;
};
