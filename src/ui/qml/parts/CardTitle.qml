import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The heading of a card: a symbol, what it is about, and a name at its end where there is one.
RowLayout {
    id: heading

    required property string title
    required property string systemImage
    property string detail
    property color tint: Theme.accent

    spacing: Theme.regular

    Symbol {
        name: heading.systemImage
        size: 15
        weight: Font.Medium
        color: heading.tint
    }

    PlainText {
        text: heading.title
        font: Theme.title3
        Accessible.role: Accessible.Heading
    }

    PlainText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignRight
        text: heading.detail
        font: Theme.callout
        color: Theme.secondary
        elide: Text.ElideMiddle
        maximumLineCount: 1
    }
}
