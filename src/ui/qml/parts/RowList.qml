import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// A list of rows of one height, with a scroll bar and the keys of a list. Rows are reused, so its length costs
/// nothing.
ListView {
    id: list

    property int rowHeight: Theme.listRowHeight
    readonly property int rowsOnPage: Math.max(1, Math.floor(height / rowHeight) - 1)

    /// A key asks to go to `row`, which there is.
    signal goTo(int row)

    function makeCurrent(row: int) {
        currentIndex = row;
        positionViewAtIndex(row, ListView.Contain);
    }

    // Whoever comes by key sees where they are.
    onActiveFocusChanged: {
        if (activeFocus && count > 0)
            makeCurrent(Math.max(currentIndex, 0));
    }
    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    interactive: !hold.isHeld
    reuseItems: true
    cacheBuffer: 4 * rowHeight
    topMargin: Theme.small
    bottomMargin: Theme.small
    keyNavigationEnabled: false
    highlightMoveDuration: 0
    Accessible.role: Accessible.List
    T.ScrollBar.vertical: ThinScrollBar {
    }

    MouseHold {
        id: hold

        parent: list
    }

    Keys.onPressed: event => {
        const row = KeyTravel.row(event.key, currentIndex, count, rowsOnPage);
        if (row >= 0) {
            event.accepted = true;
            goTo(row);
        }
    }
}
