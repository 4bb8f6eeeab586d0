import QtQuick

/// Centred text whose lines are about as long as each other, so that no word stands alone on the last.
PlainText {
    id: balanced

    /// The longest that a line may be.
    required property real longestLine

    readonly property real wholeLength: metrics.advanceWidth
    readonly property real lines: Math.ceil(wholeLength / longestLine)

    // A word that does not fit any more moves down: what lines share has to leave room for one.
    width: lines > 1 ? Math.min(longestLine, wholeLength / lines + longestLine / 8) : longestLine
    horizontalAlignment: Text.AlignHCenter
    wrapMode: Text.Wrap

    TextMetrics {
        id: metrics

        text: balanced.text
        font: balanced.font
    }
}
