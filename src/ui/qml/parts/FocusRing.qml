import QtQuick
import Tarnvale

/// Shows that the item around it has the keyboard.
ContinuousRectangle {
    property real around: 0

    anchors {
        fill: parent
        margins: -Theme.focusWidth
    }
    radius: around + Theme.focusWidth
    color: "transparent"
    borderColor: Theme.focusRing
    borderWidth: Theme.focusWidth
}
