import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// One thing to choose in a menu.
T.MenuItem {
    id: entry

    /// What assistive technology is told, as by BaseButton.
    readonly property int role: Accessible.MenuItem
    readonly property string name: text

    function activate() {
        if (enabled)
            clicked();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.menuEntryHeight
    leftPadding: Theme.medium
    rightPadding: Theme.medium
    font: Theme.body
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: name

    contentItem: PlainText {
        verticalAlignment: Text.AlignVCenter
        text: entry.text
        font: entry.font
        color: entry.highlighted && entry.enabled ? Theme.inkOnFill : Theme.primary
        Accessible.ignored: true
    }
    background: ContinuousRectangle {
        radius: Theme.controlRadius
        color: entry.highlighted && entry.enabled ? Theme.prominentFill : "transparent"
    }
}
