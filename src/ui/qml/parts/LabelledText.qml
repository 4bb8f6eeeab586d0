import QtQuick
import QtQuick.Layouts

/// A value and what it is, in one line.
RowLayout {
    id: line

    required property string label
    required property string value

    spacing: 6
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    PlainText {
        text: line.label
        font: Theme.callout
        color: Theme.secondary
        Accessible.ignored: true
    }

    PlainText {
        Layout.fillWidth: true
        text: line.value
        font: Theme.callout
        elide: Text.ElideMiddle
        maximumLineCount: 1
        Accessible.ignored: true
    }
}
