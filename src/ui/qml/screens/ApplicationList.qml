import QtQuick
import Tarnvale

/// The installed applications. Its selection is the state's: it never follows from rows that come and go.
RowList {
    id: list

    required property AppViewModel viewModel

    model: viewModel.applications
    rowHeight: Theme.applicationRowHeight
    topMargin: 0
    bottomMargin: 0
    snapMode: ListView.SnapToItem
    Accessible.name: Texts.of("applications")
    onGoTo: row => {
        makeCurrent(row);
        viewModel.selectApplicationAt(row);
    }
    onHeightChanged: showSelected()
    Component.onCompleted: showSelected()
    Keys.onSpacePressed: typed(" ") || viewModel.selectApplicationAt(currentIndex)
    Keys.onPressed: event => {
        if (typed(event.text))
            event.accepted = true;
    }

    /// The most of this height that no row is cut by.
    function wholeRows(height: real): real {
        return Math.floor(height / rowHeight) * rowHeight;
    }

    function showSelected() {
        if (viewModel.selectedApplicationRow >= 0)
            makeCurrent(viewModel.selectedApplicationRow);
    }

    function typed(text: string): bool {
        const row = names.row(text, currentIndex);
        if (row >= 0)
            goTo(row);
        return row >= 0;
    }

    TypeAhead {
        id: names

        model: list.viewModel.applications
    }

    Connections {
        function onSelectedApplicationRowChanged() {
            list.showSelected();
        }

        target: list.viewModel
    }

    delegate: ApplicationRow {
        selected: index === list.viewModel.selectedApplicationRow
        hasKeyboard: list.activeFocus && ListView.isCurrentItem
        onChosen: {
            list.viewModel.selectApplicationAt(index);
            list.forceActiveFocus(Qt.MouseFocusReason);
        }
    }
}
