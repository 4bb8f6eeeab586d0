import QtQuick

/// Says that an application belongs to the system.
Row {
    spacing: 5

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        name: "lock.shield"
        size: 12
        weight: Font.Medium
        color: Theme.tints.orange
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        text: Texts.of("system_app")
        font: Theme.caption
        color: Theme.tints.orange
    }
}
