import QtQuick

/// A line between two blocks.
Rectangle {
    implicitWidth: Theme.lineWidth
    implicitHeight: Theme.lineWidth
    color: Theme.hairline
}
