import QtQuick
import Tarnvale

/// One reading of the computer, its battery, its startup volume and its memory. Reads anew whenever it is shown.
SectionView {
    id: view

    /// A DashboardPresentation; undefined before the first reading.
    readonly property var reading: Presentation.dashboard(viewModel.dashboardSnapshot, viewModel.language)

    main: view
    canRefresh: true
    onRefresh: viewModel.refreshDashboard()
    Keys.onPressed: event => cardArea.scrollByKey(event)
    Component.onCompleted: viewModel.refreshDashboard()

    EmptyState {
        anchors.fill: parent
        visible: !view.reading
        title: Texts.of("dashboard_no_data")
        description: Texts.of("dashboard_refresh_help")
        systemImage: view.section.symbol

        PushButton {
            text: Texts.of("refresh")
            onClicked: view.viewModel.refreshDashboard()
        }
    }

    ScrollArea {
        id: cardArea

        anchors.fill: parent
        visible: Boolean(view.reading)
        contentWidth: width
        contentHeight: cards.height + 2 * Theme.screenPadding

        Loader {
            id: cards

            x: Theme.screenPadding
            y: Theme.screenPadding
            width: parent.width - 2 * Theme.screenPadding
            active: Boolean(view.reading)

            sourceComponent: DashboardCards {
                section: view.section
                reading: view.reading
                onRefresh: view.viewModel.refreshDashboard()
            }
        }
    }
}
