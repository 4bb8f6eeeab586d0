import QtQuick
import Tarnvale

/// What every screen is made of.
FocusScope {
    required property AppViewModel viewModel
    required property sidebarSection section
    /// What has the keyboard when the screen is shown: its field, or its list.
    required property Item main
}
