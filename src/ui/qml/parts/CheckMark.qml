import QtQuick
import Tarnvale

/// A check box with an optional text beside it.
BaseButton {
    id: box

    checkable: true
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(Theme.checkSide + topPadding + bottomPadding, implicitContentHeight)
    topPadding: Theme.small
    bottomPadding: Theme.small
    font: Theme.body
    opacity: enabled ? 1 : Theme.disabledOpacity

    indicator: ContinuousRectangle {
        y: (box.height - height) / 2
        width: Theme.checkSide
        height: Theme.checkSide
        radius: Theme.checkRadius
        color: box.checked ? Theme.prominentFill : Theme.fieldFill
        borderColor: box.checked ? "transparent" : Theme.checkEdge
        borderWidth: Theme.lineWidth

        Symbol {
            anchors.centerIn: parent
            visible: box.checked
            name: "checkmark"
            size: 9
            weight: Font.DemiBold
            color: Theme.inkOnFill
        }

        FocusRing {
            around: parent.radius
            visible: box.visualFocus
        }
    }
    contentItem: PlainText {
        leftPadding: text === "" ? Theme.checkSide : Theme.checkSide + 7
        verticalAlignment: Text.AlignVCenter
        text: box.text
        font: box.font
        Accessible.ignored: true
    }
}
