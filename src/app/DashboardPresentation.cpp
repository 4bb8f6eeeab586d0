#include "DashboardPresentation.h"

#include "ByteCount.h"
#include "Text.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

struct Translation
{
    QStringView serviceText;
    QStringView key;
};

constexpr Translation powerTexts[] = {
    {u"Unknown", u"not_available"},
    {u"Power adapter", u"dashboard_power_adapter"},
    {u"Unlimited", u"dashboard_unlimited"},
};

// Compared after lower-casing.
constexpr Translation conditionTexts[] = {
    {u"good", u"dashboard_condition_good"},
    {u"fair", u"dashboard_condition_fair"},
    {u"poor", u"dashboard_condition_poor"},
};

/// Words the values of one reading in one language.
class Wording
{
public:
    explicit Wording(AppLanguage language) : m_language(language) { }

    QString text(QStringView key) const { return localizedText(key, m_language); }
    QString notAvailable() const { return text(u"not_available"); }

    LabelledValue row(QStringView key, const QString &value, QStringView symbol = {}) const
    {
        return {text(key), value, symbol.toString()};
    }

    /// The text of a power source or of the time left.
    QString power(const QString &serviceText) const
    {
        const auto *const row = std::ranges::find(powerTexts, serviceText, &Translation::serviceText);
        return row == std::end(powerTexts) ? serviceText : text(row->key);
    }

    QString condition(const std::optional<QString> &serviceText) const
    {
        if (!serviceText || serviceText->isEmpty())
            return notAvailable();
        const auto *const row =
            std::ranges::find(conditionTexts, serviceText->toLower(), &Translation::serviceText);
        return row == std::end(conditionTexts) ? *serviceText : text(row->key);
    }

    template <typename Number> QString number(const std::optional<Number> &value, const QString &unit = {}) const
    {
        return value ? QString::number(*value) + unit : notAvailable();
    }

    QString memory(std::optional<quint64> bytes) const
    {
        return bytes ? formattedByteCount(static_cast<qint64>(*bytes), ByteCountStyle::memory) : notAvailable();
    }

    QString date(const std::optional<QDateTime> &date) const
    {
        return date ? shortMoment(*date, QLocale::system()) : notAvailable();
    }

    Gauge gauge(std::optional<double> part, double whole) const
    {
        if (!part)
            return {0, 0, notAvailable()};
        const auto fraction = whole > 0 ? std::clamp(*part / whole, 0.0, 1.0) : 0.0;
        const auto percentage = static_cast<int>(fraction * 100);
        return {fraction, percentage, QString::number(percentage) + u'%'};
    }

private:
    AppLanguage m_language;
};

QString fileSize(qint64 bytes)
{
    return formattedByteCount(bytes, ByteCountStyle::file);
}

QList<LabelledValue> describe(const ComputerInfo &computer, const Wording &in)
{
    return {in.row(u"dashboard_processor", computer.processor, u"cpu"),
            in.row(u"dashboard_memory", computer.memory, u"memorychip"),
            in.row(u"dashboard_boot_date", in.date(computer.bootDate), u"clock.arrow.circlepath")};
}

QList<LabelledValue> describe(const BatteryInfo &battery, const Wording &in)
{
    const auto capacity =
        battery.currentCapacity && battery.maxCapacity
            ? QStringLiteral("%1 / %2 mAh").arg(*battery.currentCapacity).arg(*battery.maxCapacity)
            : in.notAvailable();
    return {in.row(u"dashboard_power_source", in.power(battery.powerSource)),
            in.row(u"dashboard_time_remaining", in.power(battery.timeRemaining)),
            in.row(u"dashboard_charging", in.text(battery.isCharging ? u"yes" : u"no")),
            in.row(u"dashboard_health", in.number(battery.healthPercentage, QStringLiteral("%"))),
            in.row(u"dashboard_condition", in.condition(battery.condition)),
            in.row(u"dashboard_cycle_count", in.number(battery.cycleCount)),
            in.row(u"dashboard_capacity", capacity),
            in.row(u"dashboard_design_capacity", in.number(battery.designCapacity, QStringLiteral(" mAh")))};
}

/// Never below 0, whatever a file system tells: some promise more than they hold.
qint64 usedBytes(const StorageInfo &storage)
{
    return std::max<qint64>(storage.totalBytes - storage.freeBytes, 0);
}

QList<LabelledValue> describe(const StorageInfo &storage, const Wording &in)
{
    return {in.row(u"dashboard_used", fileSize(usedBytes(storage))),
            in.row(u"dashboard_free", fileSize(storage.freeBytes)),
            in.row(u"dashboard_total", fileSize(storage.totalBytes))};
}

QList<LabelledValue> describe(const MemoryInfo &memory, const Wording &in)
{
    return {in.row(u"dashboard_total", in.memory(memory.totalBytes)),
            in.row(u"dashboard_used", in.memory(memory.usedBytes)),
            in.row(u"dashboard_free", in.memory(memory.freeBytes)),
            in.row(u"dashboard_wired_memory", in.memory(memory.wiredBytes)),
            in.row(u"dashboard_active_memory", in.memory(memory.activeBytes)),
            in.row(u"dashboard_compressed_memory", in.memory(memory.compressedBytes))};
}

QVariantList variants(const QList<LabelledValue> &values)
{
    QVariantList list;
    for (const auto &value : values)
        list.append(QVariant::fromValue(value));
    return list;
}

} // namespace

QString shortMoment(const QDateTime &moment, const QLocale &locale)
{
    // Locales have a long date and one of digits alone. The weekday comes first or last in the long one.
    static const QRegularExpression weekday(QStringLiteral("^dddd\\S*\\s+|[\\s,،]*dddd.*$"));
    const auto date = locale.dateFormat(QLocale::LongFormat)
                          .remove(weekday)
                          .replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    // Where no country is known, the short time has seconds.
    const auto time = locale.timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss"));
    return locale.toString(moment.date(), date) + QStringLiteral(", ") + locale.toString(moment.time(), time);
}

DashboardPresentation::DashboardPresentation(const DashboardSnapshot &snapshot, AppLanguage language)
{
    const Wording in(language);
    const auto &[computer, battery, storage, memory] = snapshot;

    computerName = computer.computerName;
    operatingSystem = computer.operatingSystem;
    modelIdentifier = computer.modelIdentifier;
    computerValues = describe(computer, in);

    if (battery) {
        hasBattery = true;
        isCharging = battery->isCharging;
        chargeGauge = {battery->percentage / 100.0, battery->percentage,
                       QString::number(battery->percentage) + u'%'};
        batteryValues = describe(*battery, in);
    }

    volumeName = storage.volumeName;
    storageGauge = in.gauge(static_cast<double>(usedBytes(storage)), static_cast<double>(storage.totalBytes));
    storageValues = describe(storage, in);

    std::optional<double> used;
    if (memory.usedBytes)
        used = static_cast<double>(*memory.usedBytes);
    memoryGauge = in.gauge(used, static_cast<double>(memory.totalBytes));
    memoryValues = describe(memory, in);
}

QVariantList DashboardPresentation::computerValueList() const
{
    return variants(computerValues);
}

QVariantList DashboardPresentation::batteryValueList() const
{
    return variants(batteryValues);
}

QVariantList DashboardPresentation::storageValueList() const
{
    return variants(storageValues);
}

QVariantList DashboardPresentation::memoryValueList() const
{
    return variants(memoryValues);
}
