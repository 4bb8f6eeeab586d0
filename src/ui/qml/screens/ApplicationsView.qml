import QtQuick
import QtQuick.Layouts
import Tarnvale

/// Lists every installed application beside the one that is selected and what belongs to it.
SectionView {
    id: view

    main: list
    onRefresh: viewModel.loadApplications(true)

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

            ProminentButton {
                text: Texts.of("scan")
                systemImage: "magnifyingglass"
                enabled: view.viewModel.canScan
                onClicked: view.viewModel.loadApplications(true)
            }
        }

        EmptyState {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: view.viewModel.applications.isEmpty
            title: Texts.of("applications_not_scanned_title")
            description: Texts.of("applications_not_scanned_help")
            systemImage: view.section.symbol

            PushButton {
                text: Texts.of("scan")
                systemImage: "magnifyingglass"
                enabled: view.viewModel.canScan
                onClicked: view.viewModel.loadApplications(true)
            }
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !view.viewModel.applications.isEmpty
            spacing: Theme.large

            ApplicationList {
                id: list

                Layout.alignment: Qt.AlignTop
                Layout.preferredWidth: Math.min(Math.max(236, parent.width / 4), 340)
                Layout.preferredHeight: wholeRows(parent.height)
                viewModel: view.viewModel
            }

            Divider {
                Layout.fillHeight: true
            }

            ApplicationDetail {
                Layout.fillWidth: true
                Layout.fillHeight: true
                viewModel: view.viewModel
            }
        }
    }
}
