import QtQuick
import Tarnvale

/// The soft shadow of a rounded rectangle. Fills the item that casts it and reaches beyond; stands below it.
Item {
    id: shadow

    property real radius: 0
    property real blur: 16
    property real offsetY: 8

    anchors.fill: parent
    z: -1

    ShadowPicture {
        x: -reach
        y: shadow.offsetY - reach
        width: shadow.width + 2 * reach
        height: shadow.height + 2 * reach
        radius: shadow.radius
        blur: shadow.blur
    }
}
