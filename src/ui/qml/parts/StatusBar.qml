import QtQuick

/// The last word of the operation that ended last.
Rectangle {
    id: bar

    required property string message

    implicitHeight: line.implicitHeight + 2 * Theme.regular
    color: Theme.barMaterial

    Divider {
        width: parent.width
    }

    Row {
        id: line

        anchors.centerIn: parent
        spacing: Theme.regular

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "info.circle"
            size: 11
            color: Theme.secondary
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, bar.width - 2 * Theme.large - 24)
            text: bar.message
            font: Theme.caption
            color: Theme.secondary
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StatusBar
        }
    }
}
