import QtQuick
import Tarnvale

/// The sections of the program and the language switch.
FocusScope {
    id: sidebar

    required property AppViewModel viewModel

    /// A section was pressed, not only passed by.
    signal entered

    function select(row: int) {
        viewModel.sidebarSelection = Presentation.sections[row].selection;
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebarBackground
    }

    Row {
        id: header

        anchors {
            left: parent.left
            leftMargin: Theme.large
            top: parent.top
            topMargin: Theme.large
        }
        spacing: Theme.rowSpacing

        ApplicationIcon {
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.tight

            PlainText {
                text: "Tarnvale"
                font: Theme.headline
            }

            PlainText {
                width: Math.min(implicitWidth, sidebar.width - header.x - parent.x - Theme.large)
                text: sidebar.viewModel.diskTitle || "Uninstaller"
                font: Theme.caption
                color: Theme.secondary
                elide: Text.ElideMiddle
            }
        }
    }

    ScrollArea {
        anchors {
            left: parent.left
            right: parent.right
            top: header.bottom
            topMargin: Theme.medium
            bottom: footer.top
        }
        contentHeight: rows.height + 2 * Theme.small

        Column {
            id: rows

            x: 10
            y: Theme.small
            width: parent.width - 2 * x
            spacing: Theme.small

            Repeater {
                id: sections

                model: Presentation.sections

                SidebarRow {
                    id: row

                    required property int index
                    required property var modelData

                    width: rows.width
                    title: Texts.of(modelData.textKey)
                    systemImage: modelData.symbol
                    selected: sidebar.viewModel.sidebarSelection === modelData.selection
                    onClicked: {
                        sidebar.select(index);
                        sidebar.entered();
                    }
                    Keys.onPressed: event => {
                        const next = KeyTravel.row(event.key, index, sections.count, sections.count);
                        event.accepted = next >= 0;
                        if (event.accepted) {
                            sections.itemAt(next).forceActiveFocus(Qt.TabFocusReason);
                            sidebar.select(next);
                        }
                    }

                    Shortcut {
                        sequence: "Ctrl+" + (row.index + 1)
                        onActivated: row.clicked()
                    }
                }
            }
        }
    }

    Item {
        id: footer

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        height: languageSwitch.height + 2 * Theme.medium + 1

        Divider {
            width: parent.width
        }

        SegmentedControl {
            id: languageSwitch

            anchors {
                horizontalCenter: parent.horizontalCenter
                bottom: parent.bottom
                bottomMargin: Theme.medium
            }
            segments: Array.from(Presentation.languages, choice => choice.label)
            current: sidebar.viewModel.language
            name: segments.join(", ")
            onChosen: index => sidebar.viewModel.language = Presentation.languages[index].language
        }
    }
}
