import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// One reading of the computer, its battery, its startup volume and its memory. Reads anew whenever it is shown.
FocusScope {
    id: view

    required property AppViewModel viewModel
    required property sidebarSection section
    /// A DashboardPresentation; undefined before the first reading.
    readonly property var reading: Presentation.dashboard(viewModel.dashboardSnapshot, viewModel.language)

    Keys.onUpPressed: bar.decrease()
    Keys.onDownPressed: bar.increase()
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

    Flickable {
        anchors.fill: parent
        visible: Boolean(view.reading)
        contentWidth: width
        contentHeight: cards.height + 2 * Theme.screenPadding
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        T.ScrollBar.vertical: ThinScrollBar {
            id: bar

            stepSize: 0.1
        }

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
