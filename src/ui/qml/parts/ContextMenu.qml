import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// What can be done with what it is opened on, by right click or by key.
T.Menu {
    id: menu

    /// Whether it is what the key asks for.
    function isAskedForBy(event: var): bool {
        return event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier);
    }

    function widestItem(): real {
        let width = 0;
        for (let index = 0; index < count; ++index)
            width = Math.max(width, itemAt(index).implicitWidth);
        return width;
    }

    implicitWidth: Math.max(widestItem(), Theme.menuWidth) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.small
    margins: Theme.small
    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: false
        Accessible.ignored: true
    }
    background: ContinuousRectangle {
        radius: Theme.rowRadius
        color: Theme.alertFill
        borderColor: Theme.controlEdge
        borderWidth: Theme.lineWidth

        SoftShadow {
            radius: Theme.rowRadius
            blur: 12
            offsetY: 4
            opacity: Theme.plateShadowOpacity
        }
    }
    delegate: MenuEntry {
    }
}
