import QtQuick

/// A line between two blocks.
Rectangle {
    implicitWidth: 1
    implicitHeight: 1
    color: Theme.hairline
}
