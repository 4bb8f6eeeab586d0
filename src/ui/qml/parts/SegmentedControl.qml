import QtQuick
import Tarnvale

/// One choice of a few, side by side. Left and Right move it.
FocusScope {
    id: control

    /// The labels in order.
    required property var segments
    required property int current
    /// For assistive technology.
    property string name

    signal chosen(int index)

    function go(index: int) {
        if (index < 0 || index >= segments.length)
            return;
        faces.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        chosen(index);
    }

    implicitWidth: segments.length * Theme.segmentWidth
    implicitHeight: 26
    Accessible.role: Accessible.Grouping
    Accessible.name: name
    Accessible.description: segments[current]
    Keys.onLeftPressed: go(current - 1)
    Keys.onRightPressed: go(current + 1)

    ContinuousRectangle {
        anchors.fill: parent
        radius: Theme.controlRadius
        color: Theme.trackFill
        borderColor: Theme.hairline
        borderWidth: Theme.lineWidth

        FocusRing {
            around: parent.radius
            visible: control.activeFocus
        }
    }

    Row {
        anchors {
            fill: parent
            margins: Theme.tight
        }

        Repeater {
            id: faces

            model: control.segments

            BaseButton {
                id: segment

                required property int index
                required property string modelData

                role: Accessible.RadioButton
                width: parent.width / control.segments.length
                height: parent.height
                text: modelData
                checked: index === control.current
                focusPolicy: checked || activeFocus ? Qt.TabFocus : Qt.NoFocus
                onClicked: control.chosen(index)

                background: ContinuousRectangle {
                    radius: Theme.controlRadius - Theme.tight
                    color: segment.checked ? Theme.segmentFill : segment.hovered ? Theme.hoverWash : "transparent"
                    borderColor: segment.checked ? Theme.hairline : "transparent"
                    borderWidth: Theme.lineWidth
                }
                contentItem: PlainText {
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    text: segment.text
                    font: segment.checked ? Theme.calloutSemibold : Theme.callout
                    color: segment.checked ? Theme.primary : Theme.secondary
                    Accessible.ignored: true
                }
            }
        }
    }
}
