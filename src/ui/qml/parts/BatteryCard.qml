import QtQuick
import Tarnvale

/// The battery, or that there is none.
Loader {
    id: card

    /// A DashboardPresentation.
    required property var reading

    sourceComponent: reading.hasBattery ? battery : noBattery

    Component {
        id: battery

        GaugeCard {
            title: Texts.of("dashboard_battery")
            systemImage: "battery.100percent"
            gauge: card.reading.chargeGauge
            gaugeLabel: Texts.of("dashboard_charge")
            gaugeImage: card.reading.isCharging ? "bolt.fill" : ""
            shades: Theme.chargeShades
            values: card.reading.batteryValues
        }
    }

    Component {
        id: noBattery

        UtilityCard {
            padding: Theme.cardPadding

            EmptyState {
                width: parent.width
                height: Math.max(parent.height, implicitHeight)
                title: Texts.of("dashboard_no_battery")
                description: Texts.of("dashboard_no_battery_help")
                systemImage: "battery.0percent"
            }
        }
    }
}
