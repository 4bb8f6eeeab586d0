import QtQuick
import Tarnvale

/// A line of text that is shortened where it has no room, and then has all of it in a tooltip.
PlainText {
    id: line

    /// What the tooltip leaves readable.
    property Item around: line

    elide: Text.ElideMiddle
    maximumLineCount: 1

    HoverHandler {
        id: hover
    }

    Tip {
        shown: hover.hovered && line.truncated
        text: line.text
        around: line.around
    }
}
