import QtQuick
import Tarnvale

/// Takes an application's bundle.
DropReceiver {
    id: zone

    implicitHeight: face.implicitHeight + 2 * 13
    Accessible.role: Accessible.StaticText
    Accessible.name: Texts.of("drop_app_title")
    Accessible.description: Texts.of("drop_app_help")

    ContinuousRectangle {
        anchors.fill: parent
        radius: Theme.dropZoneRadius
        color: zone.isTargeted ? Theme.accentWash : "transparent"
        borderColor: zone.isTargeted ? Theme.accent : Theme.hairline
        borderWidth: 1.5
        dash: 5
    }

    Row {
        id: face

        anchors {
            left: parent.left
            right: parent.right
            margins: Theme.large
            verticalCenter: parent.verticalCenter
        }
        spacing: Theme.medium

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "app.dashed"
            size: 28
            weight: Font.DemiBold
            color: zone.isTargeted ? Theme.accent : Theme.secondary
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 3

            PlainText {
                text: Texts.of("drop_app_title")
                font: Theme.headline
                Accessible.ignored: true
            }

            PlainText {
                text: Texts.of("drop_app_help")
                font: Theme.caption
                color: Theme.secondary
                Accessible.ignored: true
            }
        }
    }
}
