import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// A tooltip over the item that it stands in.
T.ToolTip {
    id: tip

    property bool shown: false

    visible: shown && text !== ""
    delay: 600
    x: parent ? Math.max(0, (parent.width - implicitWidth) / 2) : 0
    y: -implicitHeight - Theme.small
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
