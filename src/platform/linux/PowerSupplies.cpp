#include "PowerSupplies.h"

#include "SystemFiles.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

constexpr double onExternalPower = -2;
constexpr double unknown = -1;

/// One folder of /sys/class/power_supply.
class Supply
{
public:
    Supply(const SystemFiles &files, const QByteArray &name)
        : m_files(files), m_folder("/sys/class/power_supply/" + name + '/'), m_type(text("type")),
          m_isPeripheral(text("scope") == QLatin1String("Device"))
    {
    }

    bool isBattery() const
    {
        return !m_isPeripheral && m_type == QLatin1String("Battery") && number("present") != 0;
    }

    /// Whether it brings power from outside; absent for what is not made to.
    std::optional<bool> isOnline() const
    {
        const auto online = number("online");
        if (m_isPeripheral || m_type == QLatin1String("Battery") || !online)
            return std::nullopt;
        return *online != 0;
    }

    QString text(const QByteArray &attribute) const
    {
        return m_files.line(m_folder + attribute).value_or(QString());
    }
    std::optional<qint64> number(const QByteArray &attribute) const
    {
        return m_files.number(m_folder + attribute);
    }

    /// The attribute's number if it is above 0.
    std::optional<double> amount(const QByteArray &attribute) const
    {
        const auto value = m_files.number(m_folder + attribute);
        return value && *value > 0 ? std::optional(static_cast<double>(*value)) : std::nullopt;
    }

private:
    const SystemFiles &m_files;
    QByteArray m_folder;
    QString m_type;
    bool m_isPeripheral;
};

/// A battery's figures, every attribute read once.
struct Battery
{
    explicit Battery(const Supply &supply);

    PowerSourceDescription description(const std::optional<bool> &isExternalPower) const;

    QString status;
    std::optional<qint64> current;
    std::optional<qint64> max;
    bool isPercentage = false;
    BatteryRegistryEntry entry;
    /// µWh left and µW drawn; 0 when not known.
    double energyLeft;
    double powerDrawn;
};

/// Volts.
std::optional<double> nominalVoltage(const Supply &supply)
{
    for (const auto *attribute : {"voltage_min_design", "voltage_now"}) {
        if (const auto microvolts = supply.amount(attribute))
            return *microvolts / 1e6;
    }
    return std::nullopt;
}

/// mAh; `which` is "now", "full" or "full_design". An empty battery holds 0; what no battery of a computer holds
/// is taken for a fault of the firmware.
std::optional<qint64> capacity(const Supply &supply, const QByteArray &which, std::optional<double> voltage)
{
    constexpr double mostMilliampereHours = 10'000'000;
    const auto milliampereHours = [&]() -> std::optional<double> {
        if (const auto charge = supply.number("charge_" + which))
            return static_cast<double>(*charge) / 1000;
        const auto energy = supply.number("energy_" + which);
        if (energy && voltage)
            return static_cast<double>(*energy) / 1000 / *voltage;
        return std::nullopt;
    }();
    if (!milliampereHours || *milliampereHours < 0 || *milliampereHours > mostMilliampereHours)
        return std::nullopt;
    return std::llround(*milliampereHours);
}

std::optional<QString> condition(const QString &health)
{
    struct Word
    {
        const char *health;
        const char *condition;
    };
    constexpr Word words[] = {
        {"Good", "Good"},       {"Dead", "Poor"},           {"Unspecified failure", "Poor"},
        {"Blown fuse", "Poor"}, {"Cell imbalance", "Poor"},
    };
    for (const auto &word : words) {
        if (health == QLatin1String(word.health))
            return QLatin1String(word.condition);
    }
    return std::nullopt;
}

Battery::Battery(const Supply &supply) : status(supply.text("status"))
{
    const auto voltage = nominalVoltage(supply);
    current = capacity(supply, "now", voltage);
    max = capacity(supply, "full", voltage);
    const auto percentage = supply.number("capacity");
    if ((!current || !max) && percentage && *percentage >= 0 && *percentage <= 100) {
        isPercentage = !max;
        max = max.value_or(100);
        // Rounded up, so that cutting off the fraction gives the same percentage again.
        current = (*percentage * *max + 99) / 100;
    }

    entry.designCapacity = capacity(supply, "full_design", voltage);
    const auto cycles = supply.number("cycle_count");
    entry.cycleCount = cycles && *cycles > 0 ? cycles : std::nullopt;
    entry.batteryHealth = condition(supply.text("health"));

    // Without a voltage, mAh and mA serve as well as long as it is the only battery.
    const auto volts = voltage.value_or(1);
    const auto energy = supply.amount("energy_now");
    energyLeft = energy ? *energy : supply.amount("charge_now").value_or(0) * volts;
    // Some drivers count what flows out as negative.
    const auto magnitude = [&](const char *attribute) -> std::optional<double> {
        const auto value = supply.number(attribute);
        return value ? std::optional(std::abs(static_cast<double>(*value))) : std::nullopt;
    };
    const auto power = magnitude("power_now");
    powerDrawn = power ? *power : magnitude("current_now").value_or(0) * volts;
}

PowerSourceDescription Battery::description(const std::optional<bool> &isExternalPower) const
{
    PowerSourceDescription description;
    description.currentCapacity = current;
    description.maxCapacity = max;
    description.isPercentage = isPercentage;
    if (isExternalPower)
        description.powerSourceState =
            *isExternalPower ? QStringLiteral("AC Power") : QStringLiteral("Battery Power");
    if (!status.isEmpty() && status != QLatin1String("Unknown"))
        description.isCharging = status == QLatin1String("Charging");
    return description;
}

/// Absent when nothing tells.
std::optional<bool> isExternalPower(const std::vector<Supply> &supplies, const std::vector<Battery> &batteries)
{
    const auto anySupply = [&](bool state) {
        return std::ranges::any_of(supplies, [=](const Supply &supply) { return supply.isOnline() == state; });
    };
    const auto anyBattery = [&](QLatin1String status) {
        return std::ranges::any_of(batteries, [=](const Battery &battery) { return battery.status == status; });
    };
    if (anySupply(true) || anyBattery(QLatin1String("Charging")))
        return true;
    if (anySupply(false) || anyBattery(QLatin1String("Discharging")))
        return false;
    // A battery that neither charges nor discharges is one that something else spares.
    if (anyBattery(QLatin1String("Full")) || anyBattery(QLatin1String("Not charging")))
        return true;
    return std::nullopt;
}

double secondsLeft(const std::vector<Battery> &batteries)
{
    constexpr double longest = 10 * 24 * 3600;
    double energy = 0;
    double power = 0;
    for (const auto &battery : batteries) {
        energy += battery.energyLeft;
        power += battery.powerDrawn;
    }
    const auto seconds = energy / power * 3600;
    return energy > 0 && power > 0 && seconds <= longest ? seconds : unknown;
}

} // namespace

PowerReading readPowerSupplies(const SystemFiles &files)
{
    std::vector<Supply> supplies;
    std::vector<Battery> batteries;
    for (const auto &name : files.names("/sys/class/power_supply")) {
        const Supply supply(files, name);
        if (supply.isBattery())
            batteries.emplace_back(supply);
        else
            supplies.push_back(supply);
    }
    if (batteries.empty())
        return {};

    const auto external = isExternalPower(supplies, batteries);
    const auto &first = batteries.front();
    return {first.description(external), first.entry,
            external.value_or(false) ? onExternalPower : secondsLeft(batteries)};
}
