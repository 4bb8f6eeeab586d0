import QtQuick
import Tarnvale

/// Says that an operation runs.
ContinuousRectangle {
    required property string name

    implicitWidth: spinner.implicitWidth + 2 * Theme.regular
    implicitHeight: spinner.implicitHeight + 2 * Theme.regular
    radius: Theme.rowRadius
    color: Theme.plateMaterial
    borderColor: Theme.hairline
    borderWidth: Theme.lineWidth

    SoftShadow {
        radius: Theme.rowRadius
        blur: 8
        offsetY: 2
        opacity: Theme.plateShadowOpacity
    }

    Spinner {
        id: spinner

        anchors.centerIn: parent
        Accessible.name: parent.name
    }
}
