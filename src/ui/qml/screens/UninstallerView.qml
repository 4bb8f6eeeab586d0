import QtQuick
import QtQuick.Layouts
import Tarnvale

/// Finds an application by its exact name or by its bundle, and lists what belongs to it.
SectionView {
    id: view

    main: field
    canRefresh: viewModel.canScanByName
    onRefresh: viewModel.scanApplicationByName()
    Keys.onReturnPressed: event => event.isAutoRepeat || scanButton.activate()
    Keys.onEnterPressed: event => event.isAutoRepeat || scanButton.activate()

    ColumnLayout {
        anchors {
            fill: parent
            margins: Theme.screenPadding
        }
        spacing: Theme.blockSpacing

        UtilityHeader {
            Layout.fillWidth: true
            Layout.bottomMargin: Theme.small
            section: view.section
            subtitle: Texts.of("welcome")
        }

        RowLayout {
            spacing: Theme.rowSpacing

            RoundedTextField {
                id: field

                Layout.fillWidth: true
                placeholderText: Texts.of("search_placeholder")
                text: view.viewModel.applicationQuery
                onTextEdited: view.viewModel.applicationQuery = text
                onSubmitted: view.viewModel.scanApplicationByName()
            }

            ProminentButton {
                id: scanButton

                text: Texts.of("scan")
                systemImage: "magnifyingglass"
                enabled: view.viewModel.canScanByName
                onClicked: view.viewModel.scanApplicationByName()
            }
        }

        DropZone {
            Layout.fillWidth: true
            onUrlDropped: url => view.viewModel.handleDroppedApplication(url)
        }

        ApplicationCard {
            Layout.fillWidth: true
            visible: application !== undefined
            application: view.viewModel.selectedApplication
        }

        FileListView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !items.isEmpty
            viewModel: view.viewModel
            scope: Tarnvale.ScanScope.uninstaller
        }

        EmptyState {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: view.viewModel.associatedItems.isEmpty
            title: view.viewModel.statusMessage || Texts.of("welcome")
            systemImage: "trash.slash"
        }
    }
}
