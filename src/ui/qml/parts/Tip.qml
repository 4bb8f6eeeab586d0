import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// A tooltip below the item that it stands in: in a list, the row above stays readable.
T.ToolTip {
    id: tip

    property bool shown: false

    visible: shown && text !== ""
    delay: 600
    x: parent ? Math.max(0, (parent.width - implicitWidth) / 2) : 0
    y: parent ? parent.height + Theme.small : 0
    margins: Theme.regular
    padding: Theme.small
    leftPadding: Theme.regular
    rightPadding: Theme.regular
    implicitWidth: Math.min(implicitContentWidth + leftPadding + rightPadding, 560)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: PlainText {
        text: tip.text
        font: Theme.callout
        wrapMode: Text.WrapAnywhere
    }
    background: ContinuousRectangle {
        radius: Theme.controlRadius
        color: Theme.alertFill
        borderColor: Theme.controlEdge
        borderWidth: Theme.lineWidth
    }
}
