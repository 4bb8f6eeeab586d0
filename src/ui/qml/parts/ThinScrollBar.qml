import QtQuick
import QtQuick.Templates as T

/// A scroll bar that shows while it is of use.
T.ScrollBar {
    id: bar

    implicitWidth: 11
    implicitHeight: 11
    padding: 2
    minimumSize: 0.08
    Accessible.ignored: true
    visible: policy === T.ScrollBar.AlwaysOn || size < 1

    contentItem: Rectangle {
        implicitWidth: 7
        implicitHeight: 7
        radius: 3.5
        color: Theme.scrollThumb
        opacity: bar.pressed ? 1 : bar.active || bar.hovered ? 0.8 : 0.45
    }
}
