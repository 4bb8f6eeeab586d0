import QtQuick
import QtQuick.Layouts
import Tarnvale

/// One found file or folder: its tile, its name above its path, its size. What acts on it stands before the tile
/// or at the end.
Item {
    id: row

    required property int index
    required property string name
    required property string path
    required property string sizeText
    required property string symbol
    required property string tint
    required property string kindKey
    /// How sure it is that the item belongs to its application, in words; empty where that is no question.
    property string match
    /// That it is ticked, in words, as Qt 6.4 tells of it only when that changes; empty where it is not.
    property string tick

    property int symbolWeight: Font.Normal
    property font nameFont: Theme.rowTitle
    property alias leading: leadingSlot.data
    property alias trailing: trailingSlot.data
    /// Whether what stands in it shows a tooltip of its own.
    property bool hasOtherTip

    readonly property bool isMenuOpen: (ListView.view as FoundList)?.isMenuOpen ?? false
    readonly property bool isCurrent: ListView.isCurrentItem && (ListView.view.activeFocus || isMenuOpen)

    width: ListView.view.width
    height: Theme.listRowHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: (tick ? tick + ", " : "") + path + ", " + sizeText + ", " + Presentation.kindText(kindKey, Texts.language) + (match ? ", " + match : "")
    // Kept for another row meanwhile: not drawn, but assistive technology would still tell of it.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    ContinuousRectangle {
        anchors {
            fill: parent
            leftMargin: Theme.scrollBarWidth
            rightMargin: Theme.scrollBarWidth
        }
        radius: Theme.rowRadius
        color: row.isCurrent ? Theme.accentWash : hover.hovered ? Theme.hoverWash : "transparent"
        borderColor: row.isCurrent ? Theme.focusRing : "transparent"
        borderWidth: 2 * Theme.lineWidth
    }

    RowLayout {
        anchors {
            fill: parent
            leftMargin: Theme.cardPadding
            rightMargin: Theme.cardPadding
            topMargin: Theme.tight
            bottomMargin: Theme.tight
        }
        spacing: Theme.rowSpacing

        Row {
            id: leadingSlot

            visible: children.length > 0
        }

        IconTile {
            systemImage: row.symbol
            tint: row.tint
            weight: row.symbolWeight
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.tight

            PlainText {
                Layout.fillWidth: true
                text: row.name
                font: row.nameFont
                elide: Text.ElideMiddle
                maximumLineCount: 1
                Accessible.ignored: true
            }

            PlainText {
                Layout.fillWidth: true
                text: row.path
                font: Theme.captionMonospaced
                color: Theme.secondary
                elide: Text.ElideMiddle
                maximumLineCount: 1
                Accessible.ignored: true
            }
        }

        Figures {
            Layout.leftMargin: Theme.regular
            text: row.sizeText
            font: Theme.caption
            color: Theme.secondary
        }

        Row {
            id: trailingSlot

            visible: children.length > 0
        }
    }

    HoverHandler {
        id: hover
    }

    function takeKeyboard() {
        row.ListView.view.currentIndex = row.index;
        row.ListView.view.forceActiveFocus(Qt.MouseFocusReason);
    }

    TapHandler {
        onTapped: row.takeKeyboard()
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: event => {
            row.takeKeyboard();
            (row.ListView.view as FoundList).openMenu(event.position);
        }
    }

    Tip {
        shown: hover.hovered && !row.hasOtherTip && !row.isMenuOpen
        pointer: hover.point.position.x
        text: row.path
        note: row.match
    }
}
