import QtQuick

/// What stands where there is nothing to show: what is missing and how to get it.
Item {
    id: state

    required property string title
    property string description
    required property string systemImage
    /// What can be done about it, below the texts.
    default property alias actions: actionRow.data

    implicitHeight: face.implicitHeight

    Column {
        id: face

        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.screenPadding, 420)
        spacing: Theme.regular

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: state.systemImage
            size: 34
            weight: Font.Normal
            color: Theme.placeholder
        }

        BalancedText {
            anchors.horizontalCenter: parent.horizontalCenter
            longestLine: parent.width
            topPadding: Theme.small
            text: state.title
            font: Theme.title3
        }

        BalancedText {
            anchors.horizontalCenter: parent.horizontalCenter
            longestLine: parent.width
            visible: text !== ""
            text: state.description
            font: Theme.callout
            lineHeight: Theme.paragraphLineHeight
            color: Theme.secondary
        }

        Row {
            id: actionRow

            anchors.horizontalCenter: parent.horizontalCenter
            topPadding: children.length ? Theme.regular : 0
            visible: children.length > 0
        }
    }
}
