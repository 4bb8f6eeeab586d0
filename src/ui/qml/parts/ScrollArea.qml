import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// Shows a part of what is longer than its place, with a scroll bar.
Flickable {
    id: area

    /// Scrolls where the event is one of a key that does; what has the keyboard passes its keys on.
    function scrollByKey(event: var) {
        const edge = KeyTravel.edge(event.key, contentY, contentHeight, height);
        event.accepted = edge >= 0;
        if (event.accepted)
            contentY = edge;
    }

    boundsBehavior: Flickable.StopAtBounds
    interactive: !hold.isHeld
    clip: true
    T.ScrollBar.vertical: ThinScrollBar {
    }

    MouseHold {
        id: hold

        parent: area
    }
}
