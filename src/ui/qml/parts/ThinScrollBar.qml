import QtQuick
import QtQuick.Templates as T

/// A scroll bar that shows while it is of use.
T.ScrollBar {
    id: bar

    readonly property bool isInHand: hovered || pressed

    implicitWidth: Theme.scrollBarWidth
    implicitHeight: Theme.scrollBarWidth
    // Thin until it is reached for.
    padding: isInHand ? Theme.tight : Theme.small
    minimumSize: 0.08
    Accessible.ignored: true
    visible: policy === T.ScrollBar.AlwaysOn || size < 1

    contentItem: Rectangle {
        implicitWidth: 4
        implicitHeight: 4
        radius: width / 2
        color: bar.isInHand ? Theme.scrollThumbInHand : Theme.scrollThumb
    }
}
