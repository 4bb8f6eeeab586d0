import QtQuick
import Tarnvale

/// The decoration of a content block.
Item {
    default property alias content: inside.data
    property real padding: Theme.large

    implicitWidth: inside.childrenRect.width + 2 * padding
    implicitHeight: inside.childrenRect.height + 2 * padding

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
        borderWidth: 1
    }

    Item {
        id: inside

        anchors {
            fill: parent
            margins: parent.padding
        }
    }
}
