import QtQuick

/// The program's own icon; its corners are already round.
Image {
    property real size: Theme.iconSide

    width: size
    height: size
    sourceSize {
        width: size
        height: size
    }
    source: "qrc:/qt/qml/Tarnvale/icon.svg"
    Accessible.ignored: true
}
