import QtQuick
import Tarnvale

/// What every screen is made of.
FocusScope {
    id: base

    required property AppViewModel viewModel
    required property sidebarSection section
    /// What has the keyboard when the screen is shown: its field, or its list.
    required property Item main
    /// Whether `refresh` may come: a key asks to scan or to read again.
    property bool canRefresh: viewModel.canScan
    /// Where a long title ends that the busy plate has to leave free.
    property real titleEnd: 0

    signal refresh

    Accessible.role: Accessible.Pane
    Accessible.name: Texts.of(section.headingKey)

    Shortcut {
        sequences: [StandardKey.Refresh]
        enabled: base.canRefresh
        onActivated: base.refresh()
    }
}
