import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// A tooltip below the item that it stands in: in a list, the row and the one above stay readable.
T.ToolTip {
    id: tip

    property bool shown: false
    /// A line of its own below the text; none where it is empty.
    property string note
    /// How wide a line may be before it is broken.
    readonly property int widest: 544
    /// What stays readable: the item, or the row that it stands in.
    property Item around: parent
    /// Where in that item the pointer is, which it appears beside; negative to appear below the middle.
    property real pointer: -1

    visible: shown && text !== ""
    delay: 600
    // Where it does not fit beside the pointer, Qt would put it at the item's other end.
    onAboutToShow: {
        x = Math.max(0, pointer >= 0 ? Math.min(pointer, parent.width - implicitWidth) : (parent.width - implicitWidth) / 2);
        y = around.mapToItem(parent, 0, around.height).y + Theme.small;
    }
    margins: Theme.regular
    padding: Theme.small
    leftPadding: Theme.regular
    rightPadding: Theme.regular
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: Column {
        PlainText {
            width: Math.min(implicitWidth, tip.widest)
            text: tip.text
            font: Theme.callout
            wrapMode: Text.WrapAnywhere
        }

        PlainText {
            visible: text !== ""
            text: tip.note
            font: Theme.callout
            color: Theme.secondary
        }
    }
    background: ContinuousRectangle {
        radius: Theme.controlRadius
        color: Theme.alertFill
        borderColor: Theme.controlEdge
        borderWidth: Theme.lineWidth
    }
}
