import QtQuick

/// Turns while something works, for an unknown time.
Item {
    id: spinner

    implicitWidth: 16
    implicitHeight: 16
    Accessible.role: Accessible.ProgressBar

    Repeater {
        model: 8

        Rectangle {
            required property int index

            x: spinner.width / 2 - 1
            width: 2
            height: spinner.height * 0.3
            radius: 1
            color: Theme.primary
            opacity: 0.16 + 0.64 * ((index + 8 - spinner.step) % 8) / 7
            transform: Rotation {
                origin.x: 1
                origin.y: spinner.height / 2
                angle: index * 45
            }
        }
    }

    property int step: 0

    Timer {
        interval: 90
        repeat: true
        running: spinner.visible
        onTriggered: spinner.step = (spinner.step + 1) % 8
    }
}
