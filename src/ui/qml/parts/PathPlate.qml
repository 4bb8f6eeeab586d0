import QtQuick
import Tarnvale

/// A path on a plate; the tooltip has all of it.
ContinuousRectangle {
    id: plate

    required property string path

    implicitWidth: label.implicitWidth + 2 * 10
    implicitHeight: label.implicitHeight + 2 * 6
    radius: Theme.controlRadius
    color: Theme.pillFill
    borderColor: Theme.hairline
    borderWidth: Theme.lineWidth

    PlainText {
        id: label

        anchors {
            left: parent.left
            right: parent.right
            margins: 10
            verticalCenter: parent.verticalCenter
        }
        text: plate.path
        font: Theme.captionMonospaced
        color: Theme.secondary
        elide: Text.ElideMiddle
        maximumLineCount: 1
    }

    HoverHandler {
        id: hover
    }

    Tip {
        shown: hover.hovered
        text: plate.path
    }
}
