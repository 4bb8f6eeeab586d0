import QtQuick
import Tarnvale

/// The installed applications. Its selection is the state's: it never follows from rows that come and go.
RowList {
    id: list

    required property AppViewModel viewModel

    model: viewModel.applications
    rowHeight: Theme.applicationRowHeight
    currentIndex: viewModel.selectedApplicationRow
    Accessible.name: Texts.of("applications")
    onGoTo: row => viewModel.selectApplicationAt(row)
    onHeightChanged: showSelected()
    Component.onCompleted: showSelected()

    function showSelected() {
        positionViewAtIndex(viewModel.selectedApplicationRow, ListView.Contain);
    }

    Connections {
        function onSelectedApplicationRowChanged() {
            list.showSelected();
        }

        target: list.viewModel
    }

    delegate: ApplicationRow {
        selected: index === list.viewModel.selectedApplicationRow
        hasKeyboard: list.activeFocus
        onChosen: {
            list.forceActiveFocus(Qt.MouseFocusReason);
            list.viewModel.selectApplicationAt(index);
        }
    }
}
