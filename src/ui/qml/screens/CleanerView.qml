import QtQuick
import QtQuick.Layouts
import Tarnvale

/// Finds large caches and logs.
SectionView {
    id: view

    main: results.list
    onRefresh: viewModel.scanCleaner()

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
            subtitle: Texts.of("scan_cleaner_help")

            ProminentButton {
                text: Texts.of("scan")
                systemImage: "magnifyingglass"
                enabled: view.viewModel.canScan
                onClicked: view.viewModel.scanCleaner()
            }
        }

        FileListView {
            id: results

            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !items.isEmpty
            viewModel: view.viewModel
            scope: Tarnvale.ScanScope.cleaner
        }

        EmptyState {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: view.viewModel.cleanerItems.isEmpty
            title: Texts.of("cleaner_empty_title")
            description: view.viewModel.statusMessage || Texts.of("scan_cleaner_help")
            systemImage: view.section.symbol
        }
    }
}
