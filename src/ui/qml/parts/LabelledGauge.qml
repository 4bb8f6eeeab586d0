import QtQuick
import Tarnvale

/// A gauge that shows a share as a ring, the number and what it is inside of it.
RingGauge {
    id: gauge

    /// A Gauge.
    required property var value
    required property string label
    /// A symbol above the number; none where it is empty.
    property string systemImage
    /// Some of the theme's gauge shades.
    required property var shades

    implicitWidth: Theme.gaugeSide
    implicitHeight: implicitWidth
    thickness: 14
    fraction: value.fraction
    topColor: shades.top
    bottomColor: shades.bottom
    trackColor: Theme.gaugeTrack
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label + ": " + value.text

    Column {
        anchors.centerIn: parent
        width: gauge.width - 2 * gauge.thickness - 24

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: gauge.value.text
            font: Theme.gaugeNumber
            verticalAlignment: Text.AlignBottom
            fontSizeMode: Text.HorizontalFit
            minimumPointSize: Theme.caption.pointSize
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: gauge.label
            font: Theme.caption
            color: Theme.secondary
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.ignored: true
        }
    }

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        y: gauge.thickness + 13
        visible: name !== ""
        name: gauge.systemImage
        size: 12
        color: gauge.bottomColor
    }
}
