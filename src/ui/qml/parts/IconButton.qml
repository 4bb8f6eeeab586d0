import QtQuick
import Tarnvale

/// A symbol to press, without a plate of its own. Its text is its tooltip.
BaseButton {
    id: button

    required property string systemImage

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.systemImage
            size: 14
            weight: Font.Medium
            color: button.hovered || button.visualFocus ? Theme.accent : Theme.secondary
        }
    }
    background: ContinuousRectangle {
        radius: Theme.controlRadius
        color: button.down ? Theme.pressWash : button.hovered ? Theme.hoverWash : "transparent"

        FocusRing {
            around: parent.radius
            visible: button.visualFocus
        }
    }

    Tip {
        shown: button.hovered || button.visualFocus
        text: button.text
    }
}
