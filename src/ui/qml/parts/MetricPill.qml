import QtQuick
import QtQuick.Layouts
import Tarnvale

/// A small labelled value.
ContinuousRectangle {
    id: pill

    required property string title
    required property string value
    required property string systemImage

    implicitWidth: face.implicitWidth + 2 * Theme.medium
    implicitHeight: face.implicitHeight + 2 * 9
    radius: Theme.pillRadius
    color: Theme.pillFill
    borderColor: Theme.hairline
    borderWidth: Theme.lineWidth
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value

    RowLayout {
        id: face

        anchors {
            left: parent.left
            right: parent.right
            margins: Theme.medium
            verticalCenter: parent.verticalCenter
        }
        spacing: 9

        Symbol {
            name: pill.systemImage
            size: Theme.symbolSize
            weight: Font.Medium
            color: Theme.accent
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 1

            PlainText {
                Layout.fillWidth: true
                elide: Text.ElideRight
                text: pill.title
                font: Theme.caption
                color: Theme.secondary
                Accessible.ignored: true
            }

            Figures {
                Layout.fillWidth: true
                text: pill.value
                font: Theme.headline
                color: Theme.primary
            }
        }
    }
}
