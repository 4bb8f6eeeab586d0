import QtQuick

/// The soft shadow of a rounded rectangle. Fills the item that casts it and reaches beyond; stands below it.
Item {
    id: shadow

    property int radius: 0
    property int blur: 16
    property real offsetY: 8

    anchors.fill: parent
    z: -1

    BorderImage {
        readonly property int reach: 2 * shadow.blur
        readonly property int corner: 2 * reach + shadow.radius

        x: -reach
        y: shadow.offsetY - reach
        width: shadow.width + 2 * reach
        height: shadow.height + 2 * reach
        source: "image://shadows/%1/%2".arg(shadow.radius).arg(shadow.blur)
        border {
            left: corner
            top: corner
            right: corner
            bottom: corner
        }
    }
}
