import QtQuick
import QtQuick.Layouts
import Tarnvale

/// One section of the sidebar.
BaseButton {
    id: row

    // Not `text`, in which Qt would take "&" for a mnemonic.
    required property string title
    required property string systemImage
    required property bool selected

    role: Accessible.PageTab
    // Qt leaves a row a stop that ceases to be one while it has the keyboard.
    focusPolicy: selected || activeFocus ? Qt.TabFocus : Qt.NoFocus
    implicitHeight: Math.max(implicitContentHeight, 20) + topPadding + bottomPadding
    leftPadding: Theme.medium
    rightPadding: Theme.medium
    topPadding: 10
    bottomPadding: 10
    name: title

    contentItem: RowLayout {
        spacing: Theme.rowSpacing

        Item {
            Layout.preferredWidth: 22
            Layout.preferredHeight: 20

            Symbol {
                anchors.centerIn: parent
                name: row.systemImage
                size: Theme.symbolSize
                weight: Font.Medium
                color: row.selected ? Theme.accent : Theme.secondary
            }
        }

        PlainText {
            Layout.fillWidth: true
            text: row.title
            font: row.selected ? Theme.sidebarRowSelected : Theme.sidebarRow
            color: row.selected ? Theme.primary : Theme.secondary
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    background: ContinuousRectangle {
        radius: Theme.rowRadius
        color: row.selected ? Theme.accentWash : row.hovered ? Theme.hoverWash : "transparent"
        borderColor: row.selected ? Theme.accentEdge : "transparent"
        borderWidth: Theme.lineWidth

        FocusRing {
            around: parent.radius
            visible: row.visualFocus
        }
    }
}
