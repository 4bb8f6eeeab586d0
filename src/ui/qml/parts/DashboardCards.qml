import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The cards of the dashboard. Where three do not fit beside each other, the battery has a row of its own.
GridLayout {
    id: grid

    required property sidebarSection section
    /// A DashboardPresentation.
    required property var reading

    signal refresh

    columns: width >= 3 * Theme.gaugeCardWidth ? 3 : 2
    columnSpacing: Theme.large
    rowSpacing: Theme.large

    UtilityCard {
        Layout.fillWidth: true
        Layout.columnSpan: grid.columns

        UtilityHeader {
            width: parent.width
            section: grid.section
            subtitle: Texts.of("dashboard_help")

            PushButton {
                text: Texts.of("refresh")
                systemImage: "arrow.clockwise"
                onClicked: grid.refresh()
            }
        }
    }

    ComputerCard {
        Layout.fillWidth: true
        Layout.columnSpan: grid.columns
        reading: grid.reading
        isWide: grid.columns === 3
    }

    BatteryCard {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: 1
        Layout.columnSpan: grid.columns === 3 ? 1 : 2
        reading: grid.reading
    }

    GaugeCard {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: 1
        title: Texts.of("dashboard_storage")
        systemImage: "internaldrive"
        detail: grid.reading.volumeName
        gauge: grid.reading.storageGauge
        gaugeLabel: Texts.of("dashboard_used")
        shades: Theme.storageShades
        values: grid.reading.storageValues
    }

    GaugeCard {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: 1
        title: Texts.of("dashboard_ram")
        systemImage: "memorychip"
        gauge: grid.reading.memoryGauge
        gaugeLabel: Texts.of("dashboard_used")
        shades: Theme.memoryShades
        values: grid.reading.memoryValues
    }
}
