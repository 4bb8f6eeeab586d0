import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The heading of a screen, with the screen's own buttons at its end.
RowLayout {
    id: header

    required property sidebarSection section
    property string subtitle
    default property alias actions: actionRow.data
    /// Where the title ends, from the heading's left edge.
    readonly property real titleEnd: texts.x + Math.min(titleText.implicitWidth, titleText.width)

    spacing: Theme.blockSpacing

    ContinuousRectangle {
        Layout.alignment: Qt.AlignVCenter
        implicitWidth: Theme.largeTileSide
        implicitHeight: Theme.largeTileSide
        radius: Theme.largeTileRadius
        color: Theme.accentWash

        Symbol {
            anchors.centerIn: parent
            name: header.section.symbol
            size: 20
            weight: Font.DemiBold
            color: Theme.accent
        }
    }

    ColumnLayout {
        id: texts

        Layout.fillWidth: true
        Layout.alignment: Qt.AlignVCenter
        spacing: Theme.small

        PlainText {
            id: titleText

            Layout.fillWidth: true
            text: Texts.of(header.section.headingKey)
            font: Theme.screenTitle
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }

        PlainText {
            Layout.fillWidth: true
            visible: text !== ""
            text: header.subtitle
            font: Theme.callout
            color: Theme.secondary
            wrapMode: Text.Wrap
        }
    }

    RowLayout {
        id: actionRow

        Layout.alignment: Qt.AlignVCenter
        spacing: Theme.regular
    }
}
