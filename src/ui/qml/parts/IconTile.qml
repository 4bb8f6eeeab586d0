import QtQuick
import Tarnvale

/// A symbol on a tile of its own tint.
ContinuousRectangle {
    id: tile

    required property string systemImage
    /// The name of one of the theme's tints.
    required property string tint
    property int weight: Font.Normal

    implicitWidth: Theme.tileSide
    implicitHeight: Theme.tileSide
    radius: Theme.tileRadius
    color: Theme.withOpacity(Theme.tint(tint), Theme.tileOpacity)
    Accessible.ignored: true

    Symbol {
        anchors.centerIn: parent
        name: tile.systemImage
        size: 16
        weight: tile.weight
        color: Theme.tint(tile.tint)
    }
}
