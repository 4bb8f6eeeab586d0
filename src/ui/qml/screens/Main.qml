import QtQuick
import Tarnvale

/// The one window of the program.
Window {
    id: window

    required property AppViewModel viewModel
    required property Appearance appearance
    /// The desktop's font of one width.
    required property string monospacedFamily

    title: viewModel.diskTitle ? viewModel.diskTitle + " — Tarnvale" : "Tarnvale"
    width: minimumWidth
    height: minimumHeight
    minimumWidth: 980
    minimumHeight: 640
    visible: true
    color: Theme.screenBackground

    // What dialogs of Qt's own are drawn with, where the desktop has none.
    palette {
        window: Theme.alertFill
        light: Theme.alertFill
        base: Theme.fieldFill
        button: Theme.plainButtonFill
        mid: Theme.controlEdge
        dark: Theme.controlEdge
        shadow: Theme.dim
        windowText: Theme.primary
        text: Theme.primary
        buttonText: Theme.primary
        placeholderText: Theme.secondary
        highlight: Theme.prominentFill
        highlightedText: Theme.inkOnFill
    }

    Binding {
        target: Theme
        property: "dark"
        value: window.appearance.isDark
    }

    Binding {
        target: Theme
        property: "monospacedFamily"
        value: window.monospacedFamily
    }

    Binding {
        target: Theme
        property: "pointsPerPixel"
        value: 72 / (window.Screen.logicalPixelDensity * 25.4)
    }

    Binding {
        target: Texts
        property: "language"
        value: window.viewModel.language
    }

    ContentView {
        anchors.fill: parent
        viewModel: window.viewModel
    }

    Shortcut {
        sequences: [StandardKey.Quit, StandardKey.Close]
        onActivated: window.close()
    }
}
