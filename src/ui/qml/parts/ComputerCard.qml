import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The computer: its name, its system, and what it is made of.
UtilityCard {
    id: card

    /// A DashboardPresentation.
    required property var reading
    required property bool isWide

    padding: Theme.cardPadding

    ColumnLayout {
        width: parent.width
        spacing: 18

        RowLayout {
            Layout.fillWidth: true
            spacing: 22

            ContinuousRectangle {
                implicitWidth: 128
                implicitHeight: 108
                radius: 20
                color: Theme.accentWash

                Symbol {
                    anchors.centerIn: parent
                    name: "laptopcomputer"
                    size: 64
                    color: Theme.accent
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.small

                PlainText {
                    Layout.fillWidth: true
                    text: card.reading.computerName
                    font: Theme.computerName
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    Accessible.role: Accessible.Heading
                }

                PlainText {
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: card.reading.operatingSystem
                    color: Theme.secondary
                    elide: Text.ElideRight
                    maximumLineCount: 1
                }

                PlainText {
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: card.reading.modelIdentifier
                    font: Theme.captionMonospaced
                    color: Theme.secondary
                    elide: Text.ElideRight
                    maximumLineCount: 1
                }
            }
        }

        Divider {
            Layout.fillWidth: true
        }

        Row {
            id: facts

            // In three columns they stand above those of the cards below; in two, the processor's long name has room.
            readonly property var shares: card.isWide ? [1 / 3, 1 / 3, 1 / 3] : [0.52, 0.17, 0.31]

            Layout.fillWidth: true
            spacing: card.isWide ? Theme.large + 2 * card.padding : 28

            Repeater {
                model: card.reading.computerValues

                LabelledValue {
                    required property var modelData
                    required property int index

                    width: (facts.width - 2 * facts.spacing) * facts.shares[index]
                    label: modelData.label
                    value: modelData.value
                    systemImage: modelData.symbol
                }
            }
        }
    }
}
