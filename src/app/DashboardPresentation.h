#pragma once

#include "DashboardSnapshot.h"
#include "Enumerations.h"

#include <QList>
#include <QLocale>
#include <QVariant>

/// A name and a value as a card of the dashboard shows them.
struct LabelledValue
{
    Q_GADGET
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString symbol MEMBER symbol)

public:
    QString label;
    QString value;
    /// Empty where the row has none.
    QString symbol = {};
};

/// A share as a picture and a number.
struct Gauge
{
    Q_GADGET
    Q_PROPERTY(double fraction MEMBER fraction)
    Q_PROPERTY(int percentage MEMBER percentage)
    Q_PROPERTY(QString text MEMBER text)

public:
    /// 0 to 1; 0 when it is not known.
    double fraction = 0;
    /// `fraction` in whole percent, cut off.
    int percentage = 0;
    /// "42%", or the text for what is not available.
    QString text;

    bool operator==(const Gauge &) const = default;
};

/// The date with an abbreviated month, and the time without seconds, as is usual where `locale` is.
QString shortMoment(const QDateTime &moment, const QLocale &locale);

/// A dashboard reading in the words of one language, its dates and numbers as the system's locale has them. The texts of the service that are not the computer's own are
/// translated here.
class DashboardPresentation
{
    Q_GADGET
    Q_PROPERTY(QString computerName MEMBER computerName)
    Q_PROPERTY(QString operatingSystem MEMBER operatingSystem)
    Q_PROPERTY(QString modelIdentifier MEMBER modelIdentifier)
    Q_PROPERTY(QVariantList computerValues READ computerValueList)
    Q_PROPERTY(bool hasBattery MEMBER hasBattery)
    Q_PROPERTY(bool isCharging MEMBER isCharging)
    Q_PROPERTY(Gauge chargeGauge MEMBER chargeGauge)
    Q_PROPERTY(QVariantList batteryValues READ batteryValueList)
    Q_PROPERTY(QString volumeName MEMBER volumeName)
    Q_PROPERTY(Gauge storageGauge MEMBER storageGauge)
    Q_PROPERTY(QVariantList storageValues READ storageValueList)
    Q_PROPERTY(Gauge memoryGauge MEMBER memoryGauge)
    Q_PROPERTY(QVariantList memoryValues READ memoryValueList)

public:
    DashboardPresentation() = default;
    DashboardPresentation(const DashboardSnapshot &snapshot, AppLanguage language);

    QString computerName;
    QString operatingSystem;
    QString modelIdentifier;
    /// Processor, memory, time of the start; each with its symbol.
    QList<LabelledValue> computerValues;

    bool hasBattery = false;
    bool isCharging = false;
    Gauge chargeGauge;
    /// Empty without a battery, else the eight values of the card.
    QList<LabelledValue> batteryValues;

    QString volumeName;
    /// The used share.
    Gauge storageGauge;
    QList<LabelledValue> storageValues;

    /// The used share.
    Gauge memoryGauge;
    QList<LabelledValue> memoryValues;

private:
    QVariantList computerValueList() const;
    QVariantList batteryValueList() const;
    QVariantList storageValueList() const;
    QVariantList memoryValueList() const;
};
