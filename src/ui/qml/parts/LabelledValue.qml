import QtQuick
import Tarnvale

/// A value beneath what it is, with a symbol beside them where there is one.
Item {
    id: labelled

    required property string label
    required property string value
    property string systemImage

    implicitWidth: texts.x + Math.max(labelText.implicitWidth, valueText.implicitWidth)
    implicitHeight: texts.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        visible: name !== ""
        name: labelled.systemImage
        size: 17
        color: Theme.accent
    }

    Column {
        id: texts

        x: symbol.visible ? symbol.width + 10 : 0
        width: parent.width - x
        spacing: Theme.tight

        PlainText {
            id: labelText

            width: parent.width
            text: labelled.label
            font: Theme.caption
            color: Theme.secondary
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.ignored: true
        }

        PlainText {
            id: valueText

            width: parent.width
            text: labelled.value
            font: Theme.bodyMedium
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.ignored: true
        }
    }
}
