import QtQuick
import QtQuick.Layouts
import Tarnvale

/// Finds orphaned data of applications that are gone, and items of an exact name.
SectionView {
    id: view

    main: field
    onRefresh: viewModel.scanLeftovers()

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
            subtitle: Texts.of("scan_leftovers_help")

            ProminentButton {
                text: Texts.of("scan")
                systemImage: "magnifyingglass"
                enabled: view.viewModel.canScan
                onClicked: view.viewModel.scanLeftovers()
            }
        }

        RowLayout {
            spacing: Theme.rowSpacing

            RoundedTextField {
                id: field

                Layout.fillWidth: true
                placeholderText: Texts.of("leftover_search_placeholder")
                text: view.viewModel.leftoverQuery
                onTextEdited: view.viewModel.leftoverQuery = text
                onSubmitted: view.viewModel.searchLeftovers()
            }

            PushButton {
                text: Texts.of("search")
                systemImage: "magnifyingglass"
                enabled: view.viewModel.canSearchLeftovers
                onClicked: view.viewModel.searchLeftovers()
            }
        }

        FileListView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !items.isEmpty
            viewModel: view.viewModel
            scope: Tarnvale.ScanScope.leftovers
        }

        EmptyState {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: view.viewModel.leftoverItems.isEmpty
            title: Texts.of("leftovers_empty_title")
            description: view.viewModel.statusMessage || Texts.of("scan_leftovers_help")
            systemImage: view.section.symbol
        }
    }
}
