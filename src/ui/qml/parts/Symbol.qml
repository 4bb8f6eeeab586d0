import QtQuick
import Tarnvale

/// A named symbol in one colour, sized like text.
SymbolPicture {
    /// The size of the text that it stands beside: the drawing fills a square a good quarter larger, as letters with
    /// their ascenders do.
    property real size: 13
    readonly property int side: 2 * Math.round(size * 0.65)

    width: side
    height: side
    color: Theme.primary
}
