import QtQuick
import Tarnvale

/// Facts about the computer.
FocusScope {
    id: view

    required property AppViewModel viewModel

    EmptyState {
        anchors.fill: parent
        title: Texts.of("dashboard_no_data")
        description: Texts.of("dashboard_refresh_help")
        systemImage: "rectangle.grid.2x2"

        PushButton {
            text: Texts.of("refresh")
            onClicked: view.viewModel.refreshDashboard()
        }
    }
}
