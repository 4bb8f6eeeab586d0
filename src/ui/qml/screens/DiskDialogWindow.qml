import QtQuick
import QtQuick.Layouts
import Tarnvale

/// Says why no disk is opened, or lets one of its home folders be chosen, before there is the program's own window.
Window {
    id: window

    required property DiskDialog dialog
    required property Appearance appearance
    readonly property int rows: dialog.choices.length
    readonly property int mostRowsSeen: 6

    title: dialog.title
    width: 460
    height: face.implicitHeight + 2 * Theme.screenPadding
    minimumWidth: width
    minimumHeight: height
    flags: Qt.Dialog
    visible: true
    color: Theme.screenBackground
    onClosing: dialog.close()

    Binding {
        target: Theme
        property: "dark"
        value: window.appearance.isDark
    }

    Binding {
        target: Theme
        property: "pointsPerPixel"
        value: 72 / (window.Screen.logicalPixelDensity * 25.4)
    }

    Binding {
        target: Texts
        property: "language"
        value: window.dialog.language
    }

    Shortcut {
        sequences: [StandardKey.Cancel, StandardKey.Quit, StandardKey.Close]
        onActivated: window.close()
    }

    ColumnLayout {
        id: face

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Theme.screenPadding
        }
        spacing: Theme.large

        RowLayout {
            spacing: Theme.large

            IconTile {
                Layout.alignment: Qt.AlignTop
                implicitWidth: Theme.largeTileSide
                implicitHeight: Theme.largeTileSide
                radius: Theme.largeTileRadius
                systemImage: "internaldrive"
                tint: window.rows ? "blue" : "orange"
            }

            ColumnLayout {
                spacing: Theme.regular

                PlainText {
                    Layout.fillWidth: true
                    text: window.dialog.title
                    font: Theme.title3
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.Heading
                }

                PlainText {
                    Layout.fillWidth: true
                    text: window.dialog.message
                    color: Theme.secondary
                    lineHeight: Theme.paragraphLineHeight
                    wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                }
            }
        }

        ScrollArea {
            Layout.fillWidth: true
            Layout.preferredHeight: Math.min(window.rows, window.mostRowsSeen) * (Theme.listRowHeight + Theme.small)
            visible: window.rows > 0
            contentHeight: list.height

            Column {
                id: list

                width: parent.width
                spacing: Theme.small

                Repeater {
                    model: window.rows

                    BaseButton {
                        id: row

                        required property int index
                        readonly property var choice: window.dialog.choices[index]

                        width: list.width
                        height: Theme.listRowHeight
                        text: choice.name + ", " + choice.detail
                        focus: index === 0
                        onClicked: window.dialog.choose(index)

                        contentItem: RowLayout {
                            spacing: Theme.medium

                            Symbol {
                                Layout.leftMargin: Theme.medium
                                name: "folder"
                                color: Theme.accent
                            }

                            PlainText {
                                Layout.fillWidth: true
                                text: row.choice.name
                                font: Theme.rowTitle
                                elide: Text.ElideMiddle
                                Accessible.ignored: true
                            }

                            PlainText {
                                Layout.rightMargin: Theme.medium
                                text: row.choice.detail
                                color: Theme.secondary
                                Accessible.ignored: true
                            }
                        }
                        background: ContinuousRectangle {
                            radius: Theme.rowRadius
                            color: row.down ? Theme.pressWash : row.hovered ? Theme.hoverWash : Theme.cardFill

                            FocusRing {
                                around: parent.radius
                                visible: row.visualFocus
                            }
                        }
                    }
                }
            }
        }

        PushButton {
            Layout.alignment: Qt.AlignRight
            text: Texts.of(window.rows ? "cancel" : "ok")
            focus: !window.rows
            onClicked: window.close()
        }
    }
}
