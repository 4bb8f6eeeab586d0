import QtQuick

/// A named symbol in one colour, drawn crisply at every scale.
Image {
    id: symbol

    /// The name of a drawing in symbols/.
    required property string name
    /// The size of the text that it stands beside: the drawing fills a square a good quarter larger, as letters with
    /// their ascenders do.
    property real size: 13
    /// Font.Normal, Font.Medium or Font.DemiBold: strokes are as heavy as the text of that weight.
    property int weight: Font.Normal
    property color color: Theme.primary

    readonly property int side: 2 * Math.round(size * 0.65)

    width: side
    height: side
    sourceSize {
        width: side
        height: side
    }
    source: name === "" ? "" : "image://symbols/%1/%2/%3".arg(name).arg(weight).arg(String(color).slice(1))
    Accessible.ignored: true
}
