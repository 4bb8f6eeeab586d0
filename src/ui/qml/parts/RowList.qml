import QtQuick
import QtQuick.Templates as T

/// A list of rows of one height, with a scroll bar and the keys of a list. Rows are reused, so its length costs
/// nothing.
ListView {
    id: list

    property int rowHeight: Theme.listRowHeight
    readonly property int rowsOnPage: Math.max(1, Math.floor(height / rowHeight) - 1)

    /// A key asks to go to `row`, which there is.
    signal goTo(int row)

    function move(row: int) {
        if (count > 0)
            goTo(Math.max(0, Math.min(count - 1, row)));
    }

    function makeCurrent(row: int) {
        currentIndex = row;
        positionViewAtIndex(row, ListView.Contain);
    }

    clip: true
    activeFocusOnTab: count > 0
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 4 * rowHeight
    topMargin: Theme.small
    bottomMargin: Theme.small
    keyNavigationEnabled: false
    highlightMoveDuration: 0
    Accessible.role: Accessible.List
    T.ScrollBar.vertical: ThinScrollBar {
    }

    Keys.onUpPressed: move(currentIndex - 1)
    Keys.onDownPressed: move(currentIndex + 1)
    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_PageUp]: -rowsOnPage,
            [Qt.Key_PageDown]: rowsOnPage,
            [Qt.Key_Home]: -count,
            [Qt.Key_End]: count
        };
        if (event.key in steps) {
            move(currentIndex + steps[event.key]);
            event.accepted = true;
        }
    }
}
