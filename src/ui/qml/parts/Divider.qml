import QtQuick
import Tarnvale

/// A line between two blocks.
ContinuousRectangle {
    implicitWidth: Theme.lineWidth
    implicitHeight: Theme.lineWidth
    color: Theme.hairline
}
