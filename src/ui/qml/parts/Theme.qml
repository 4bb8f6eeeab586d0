pragma Singleton
import QtQuick

/// Palette, type, spacing and radii. No colour and no font of the window stands anywhere else, nor a size that several
/// views have in common; one that a single view has stands there.
QtObject {
    id: theme

    /// Whether the desktop is dark; set once by the window, which knows.
    property bool dark: false

    // Text and symbols
    readonly property color primary: dark ? "#f2f2f5" : "#1d1d20"
    readonly property color secondary: dark ? "#a3a3ab" : "#606068"
    readonly property color placeholder: dark ? "#87878f" : "#75757d"
    readonly property color inkOnFill: "#ffffff"
    readonly property color accent: dark ? "#4d9dff" : "#0a66e4"

    // Surfaces
    readonly property color screenBackground: dark ? "#1b1b1e" : "#f0f0f4"
    readonly property color sidebarBackground: dark ? "#232327" : "#fbfbfd"
    readonly property color cardFill: dark ? "#28282c" : "#ffffff"
    readonly property color pillFill: dark ? "#323237" : "#f5f5f8"
    readonly property color barMaterial: dark ? "#f0242428" : "#f0f8f8fb"
    readonly property color plateMaterial: dark ? "#f03a3a40" : "#f0ffffff"
    readonly property color hairline: withOpacity(primary, 0.08)
    readonly property color accentWash: withOpacity(accent, 0.12)
    readonly property color accentEdge: withOpacity(accent, 0.28)
    readonly property color dim: dark ? "#99000000" : "#4d14141c"
    readonly property color alertFill: dark ? "#2e2e33" : "#fdfdfe"

    // Controls
    readonly property color controlFill: dark ? "#3a3a40" : "#ffffff"
    readonly property color plainButtonFill: dark ? "#44444b" : "#e8e8ee"
    readonly property color controlEdge: withOpacity(primary, dark ? 0.14 : 0.16)
    readonly property color checkEdge: withOpacity(primary, dark ? 0.4 : 0.5)
    readonly property color fieldFill: dark ? "#202024" : "#ffffff"
    readonly property color trackFill: dark ? "#1a1a1d" : "#e9e9ee"
    readonly property color segmentFill: dark ? "#4a4a52" : "#ffffff"
    readonly property color prominentFill: dark ? "#1d70e2" : "#0a66e4"
    readonly property color destructiveFill: dark ? "#d63a40" : "#d12a2f"
    readonly property color hoverWash: withOpacity(primary, 0.05)
    readonly property color pressWash: withOpacity(primary, 0.12)
    readonly property color fillHoverWash: "#14000000"
    readonly property color fillPressWash: "#33000000"
    readonly property color destructiveInk: dark ? "#ff958f" : tints.red
    readonly property color focusRing: withOpacity(accent, dark ? 0.75 : 0.85)
    readonly property color scrollThumb: withOpacity(primary, dark ? 0.4 : 0.5)
    readonly property color scrollThumbInHand: withOpacity(primary, 0.65)
    readonly property real disabledOpacity: 0.42
    readonly property real tileOpacity: 0.13
    readonly property real cardShadowOpacity: dark ? 0.22 : 0.04
    readonly property real alertShadowOpacity: dark ? 0.5 : 0.22
    readonly property real plateShadowOpacity: dark ? 0.4 : 0.14

    readonly property Tints tints: Tints {
    }

    // Gauges
    readonly property GaugeShades chargeShades: GaugeShades {
        top: theme.dark ? "#6fe08a" : "#2a9d4d"
        bottom: theme.dark ? "#1fae4b" : "#177f38"
        symbol: theme.tints.green
    }
    readonly property GaugeShades storageShades: GaugeShades {
        top: theme.dark ? "#5cb8ff" : "#358be0"
        bottom: theme.dark ? "#3a86ff" : "#1a6ff0"
        symbol: theme.tints.blue
    }
    readonly property GaugeShades memoryShades: GaugeShades {
        top: theme.dark ? "#c79bff" : "#a06be8"
        bottom: theme.dark ? "#a06cf5" : "#8140e6"
        symbol: theme.tints.purple
    }
    readonly property color gaugeTrack: withOpacity(primary, dark ? 0.1 : 0.07)

    // Type
    readonly property font body: textStyle(13, Font.Normal)
    readonly property font bodyMedium: textStyle(13, Font.Medium)
    readonly property font headline: textStyle(13, Font.DemiBold)
    readonly property font callout: textStyle(12, Font.Normal)
    readonly property font calloutSemibold: textStyle(12, Font.DemiBold)
    readonly property font caption: textStyle(10, Font.Normal)
    readonly property font captionMonospaced: Qt.font({
            "family": monospacedFamily,
            "pointSize": 10 * pointsPerPixel
        })
    readonly property font title3: textStyle(15, Font.DemiBold)
    readonly property font screenTitle: textStyle(24, Font.DemiBold)
    readonly property font detailTitle: textStyle(26, Font.DemiBold)
    readonly property font computerName: textStyle(28, Font.DemiBold)
    readonly property font gaugeNumber: textStyle(30, Font.DemiBold)
    readonly property font rowTitle: textStyle(13.5, Font.DemiBold)
    readonly property font sidebarRow: textStyle(14, Font.Normal)
    readonly property font sidebarRowSelected: textStyle(14, Font.DemiBold)
    /// Set by the window, which asks the desktop for its own.
    property string monospacedFamily: "monospace"
    /// Fonts are sized in pixels, which Qt takes as whole numbers only; in points it takes any.
    property real pointsPerPixel: 0.75

    // Spacing
    readonly property int tight: 2
    readonly property int small: 4
    readonly property int regular: 8
    readonly property int medium: 12
    readonly property int large: 16
    readonly property int cardPadding: 20
    readonly property int screenPadding: 24
    readonly property int blockSpacing: 14
    readonly property int rowSpacing: 10
    readonly property real paragraphLineHeight: 1.15

    // Radii
    readonly property int cardRadius: 16
    readonly property int dropZoneRadius: 14
    readonly property int largeTileRadius: 12
    readonly property int pillRadius: 12
    readonly property int rowRadius: 10
    readonly property int iconRadius: 9
    readonly property int tileRadius: 8
    readonly property int controlRadius: 7
    readonly property int checkRadius: 4

    // Sizes
    readonly property int controlHeight: 30
    readonly property int listRowHeight: 46
    readonly property int applicationRowHeight: 50
    readonly property int tileSide: 32
    readonly property int largeTileSide: 44
    readonly property int iconSide: 34
    readonly property int symbolSize: 15
    readonly property int gaugeSide: 148
    readonly property int lineWidth: 1
    readonly property int gaugeCardWidth: 390
    readonly property int checkSide: 16
    /// What a list leaves free at its end.
    readonly property int scrollBarWidth: 12
    readonly property int menuWidth: 160
    readonly property int menuEntryHeight: 28
    readonly property int pillWidth: 176
    readonly property int segmentWidth: 71
    readonly property int focusWidth: 3

    /// Milliseconds that a change of state takes.
    readonly property int briefly: 120

    /// The system's colours by name, each readable on a card.
    component Tints: QtObject {
        readonly property color blue: theme.dark ? "#4d9dff" : "#0a66e4"
        readonly property color green: theme.dark ? "#3ccf6a" : "#1f8a3d"
        readonly property color teal: theme.dark ? "#45c6d8" : "#0b7f92"
        readonly property color indigo: theme.dark ? "#8583f5" : "#5350d4"
        readonly property color purple: theme.dark ? "#c586f2" : "#9440c4"
        readonly property color gray: theme.dark ? "#a3a3ab" : "#6b6b73"
        readonly property color orange: theme.dark ? "#ff9f2e" : "#bf5900"
        readonly property color cyan: theme.dark ? "#5ac3f5" : "#0676ad"
        readonly property color red: theme.dark ? "#ff6961" : "#cf2a22"
    }

    /// The colours of a gauge at its top and at its bottom, and of the symbol beside its title.
    component GaugeShades: QtObject {
        property color top
        property color bottom
        property color symbol
    }

    /// The tint of this name.
    function tint(name: string): color {
        return tints[name] ?? secondary;
    }

    function withOpacity(color: color, opacity: real): color {
        return Qt.rgba(color.r, color.g, color.b, opacity);
    }

    function textStyle(size: real, weight: int): font {
        return Qt.font({
                "family": Application.font.family,
                "pointSize": size * pointsPerPixel,
                "weight": weight
            });
    }
}
