import QtQuick
import Tarnvale

/// A button with a symbol and a text on a plate. Space and Return press it.
BaseButton {
    id: button

    property string systemImage
    property color fill: Theme.controlFill
    property color edge: Theme.controlEdge
    property color ink: Theme.primary
    property color hoverWash: Theme.hoverWash
    property color pressWash: Theme.pressWash

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight
    leftPadding: systemImage ? 11 : 14
    rightPadding: 14
    opacity: enabled ? 1 : Theme.disabledOpacity
    font: Theme.bodyMedium

    contentItem: Item {
        implicitWidth: face.implicitWidth
        implicitHeight: face.implicitHeight

        Row {
            id: face

            anchors.centerIn: parent
            spacing: 6

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: name !== ""
                name: button.systemImage
                weight: button.font.weight
                color: button.ink
            }

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                text: button.text
                font: button.font
                color: button.ink
                Accessible.ignored: true
            }
        }
    }
    background: ContinuousRectangle {
        radius: Theme.controlRadius
        color: button.fill
        borderColor: button.edge
        borderWidth: Theme.lineWidth

        ContinuousRectangle {
            anchors.fill: parent
            radius: parent.radius
            color: button.down ? button.pressWash : button.hovered ? button.hoverWash : "transparent"
        }

        FocusRing {
            around: parent.radius
            visible: button.visualFocus
        }
    }
}
