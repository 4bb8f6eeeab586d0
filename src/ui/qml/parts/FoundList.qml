import QtQuick
import Tarnvale

/// A list of found items. Each can be looked at in the file manager before anything is done with it.
RowList {
    id: list

    /// Whether the current row's is open.
    readonly property alias isMenuOpen: menu.visible

    signal revealAskedFor(int row)

    /// Opens the menu of the current row at `place` in it.
    function openMenu(place: point) {
        menu.row = currentIndex;
        menu.path = (currentItem as FoundRow).path;
        menu.popup(currentItem, place);
    }

    Keys.onPressed: event => {
        if (currentItem && menu.isAskedForBy(event)) {
            event.accepted = true;
            makeCurrent(currentIndex);
            openMenu(Qt.point(Theme.cardPadding, Theme.listRowHeight));
            menu.currentIndex = 0;
        }
    }

    ContextMenu {
        id: menu

        property int row
        property string path

        MenuEntry {
            text: Texts.of("show_in_finder")
            onTriggered: list.revealAskedFor(menu.row)
        }

        MenuEntry {
            text: Presentation.copyPathText(Texts.language)
            onTriggered: Clipboard.copy(menu.path)
        }
    }
}
