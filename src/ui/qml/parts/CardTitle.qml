import QtQuick
import Tarnvale

/// The heading of a card: a symbol, what it is about, and a name at its end where there is one. The name has what the
/// heading leaves.
Item {
    id: heading

    required property string title
    required property string systemImage
    property string detail
    property color tint: Theme.accent

    implicitWidth: titleText.x + titleText.implicitWidth + Theme.regular + detailText.implicitWidth
    implicitHeight: Math.max(symbol.height, titleText.height)

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        name: heading.systemImage
        size: Theme.symbolSize
        weight: Font.Medium
        color: heading.tint
    }

    // Not in a layout: in one of Qt 6.4 a text that grows before the screen was first drawn keeps its width.
    PlainText {
        id: titleText

        anchors.verticalCenter: parent.verticalCenter
        x: symbol.width + Theme.regular
        text: heading.title
        font: Theme.title3
        Accessible.role: Accessible.Heading
    }

    PlainText {
        id: detailText

        anchors {
            verticalCenter: parent.verticalCenter
            left: titleText.right
            leftMargin: Theme.regular
            right: parent.right
        }
        horizontalAlignment: Text.AlignRight
        text: heading.detail
        font: Theme.callout
        color: Theme.secondary
        elide: Text.ElideMiddle
        maximumLineCount: 1
    }
}
