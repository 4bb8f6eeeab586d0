import QtQuick

/// Lies over what scrolls and knows whether a mouse holds it: one that is dragged is no finger and scrolls nothing. The
/// wheel, a touchpad and the scroll bar do.
Item {
    readonly property alias isHeld: hold.active

    anchors.fill: parent
    z: 1

    PointHandler {
        id: hold

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
}
