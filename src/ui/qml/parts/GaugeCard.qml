import QtQuick
import QtQuick.Layouts
import Tarnvale

/// A card with a gauge and what is known besides: side by side where there is room, else one below the other.
UtilityCard {
    id: card

    required property string title
    required property string systemImage
    property string detail
    required property var gauge
    required property string gaugeLabel
    property string gaugeImage
    /// Some of the theme's gauge shades.
    required property var shades
    readonly property bool isWide: width >= 480

    /// A list of LabelledValue.
    required property var values

    padding: Theme.cardPadding

    ColumnLayout {
        width: parent.width
        spacing: Theme.large

        CardTitle {
            Layout.fillWidth: true
            title: card.title
            systemImage: card.systemImage
            detail: card.detail
            tint: card.shades.symbol
        }

        GridLayout {
            Layout.fillWidth: true
            columns: card.isWide ? 2 : 1
            columnSpacing: 32
            rowSpacing: 20

            LabelledGauge {
                Layout.alignment: Qt.AlignCenter
                value: card.gauge
                label: card.gaugeLabel
                systemImage: card.gaugeImage
                implicitWidth: card.isWide ? Theme.gaugeSide : 172
                shades: card.shades
            }

            GridLayout {
                Layout.fillWidth: true
                columns: 2
                columnSpacing: Theme.large
                rowSpacing: Theme.medium

                Repeater {
                    model: card.values

                    LabelledValue {
                        required property var modelData

                        Layout.fillWidth: true
                        Layout.preferredWidth: 1
                        label: modelData.label
                        value: modelData.value
                    }
                }
            }
        }
    }
}
