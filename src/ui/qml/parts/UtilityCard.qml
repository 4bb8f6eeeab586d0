import QtQuick
import Tarnvale

/// The decoration of a content block, and the room around it.
Item {
    id: card

    default property alias content: inside.data
    property real padding: Theme.large

    implicitWidth: Array.from(inside.children).reduce((width, child) => Math.max(width, child.implicitWidth), 0) + 2 * padding
    implicitHeight: Array.from(inside.children).reduce((height, child) => Math.max(height, child.implicitHeight), 0) + 2 * padding

    SoftShadow {
        radius: Theme.cardRadius
        blur: 16
        offsetY: 8
        opacity: Theme.cardShadowOpacity
    }

    ContinuousRectangle {
        anchors.fill: parent
        radius: Theme.cardRadius
        color: Theme.cardFill
        borderColor: Theme.hairline
        borderWidth: Theme.lineWidth
    }

    Item {
        id: inside

        anchors {
            fill: parent
            margins: card.padding
        }
    }
}
