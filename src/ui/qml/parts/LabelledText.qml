import QtQuick
import QtQuick.Layouts

/// A value and what it is, in one line.
RowLayout {
    id: line

    required property string label
    required property string value
    /// What the label takes at least, so that values below one another start in one column.
    property real column: 0
    property alias labelWidth: labelText.implicitWidth

    spacing: 6
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    PlainText {
        id: labelText

        Layout.preferredWidth: Math.max(implicitWidth, line.column)
        text: line.label
        font: Theme.callout
        color: Theme.secondary
        Accessible.ignored: true
    }

    ElidedText {
        Layout.fillWidth: true
        text: line.value
        font: Theme.callout
        Accessible.ignored: true
    }
}
