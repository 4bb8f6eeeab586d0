import QtQuick
import QtQuick.Layouts
import Tarnvale

/// One installed application.
Item {
    id: row

    required property int index
    required property string name
    required property string uri
    required property string sizeText
    required property bool isSystemApplication
    required property bool selected
    required property bool hasKeyboard

    signal chosen

    width: ListView.view.width
    height: Theme.applicationRowHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: isSystemApplication ? sizeText + ", " + Texts.of("system_app") : sizeText
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.onPressAction: chosen()
    // Kept for another row meanwhile: not drawn, but assistive technology would still tell of it.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    ContinuousRectangle {
        anchors {
            fill: parent
            rightMargin: Theme.scrollBarWidth
        }
        radius: Theme.rowRadius
        color: row.selected ? Theme.accentWash : hover.hovered ? Theme.hoverWash : "transparent"
        borderColor: row.hasKeyboard ? Theme.focusRing : row.selected ? Theme.accentEdge : "transparent"
        borderWidth: row.hasKeyboard ? 2 * Theme.lineWidth : Theme.lineWidth
    }

    RowLayout {
        anchors {
            fill: parent
            leftMargin: Theme.regular
            rightMargin: Theme.scrollBarWidth + Theme.rowSpacing
        }
        spacing: Theme.rowSpacing

        BundleIcon {
            uri: row.uri
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.tight

            ElidedText {
                around: row
                Layout.fillWidth: true
                text: row.name
                font: Theme.rowTitle
                elide: Text.ElideRight
                Accessible.ignored: true
            }

            Figures {
                text: row.sizeText
                font: Theme.caption
                color: Theme.secondary
            }
        }

        Symbol {
            visible: row.isSystemApplication
            name: "lock.fill"
            size: 10
            color: Theme.secondary
        }
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: row.chosen()
    }
}
