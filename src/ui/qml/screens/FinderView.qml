import QtQuick
import QtQuick.Layouts
import Tarnvale

/// Finds files of chosen categories under a chosen folder, and shows them. What is looked for is the screen's.
SectionView {
    id: view

    required property string help
    required property string chooseText
    required property string emptyTitle
    required property ListModelBase files
    /// A Url; undefined while none is chosen.
    required property var folder
    /// The check boxes, and the numbers of the categories that are on.
    required property var categories
    required property list<int> selectedCategories
    required property bool canScan

    signal folderAskedFor
    signal scanAskedFor
    signal categoryToggled(int category)
    signal revealAskedFor(int row)

    main: list
    titleEnd: Theme.screenPadding + header.titleEnd
    canRefresh: canScan
    onRefresh: scanAskedFor()

    ColumnLayout {
        anchors {
            fill: parent
            margins: Theme.screenPadding
        }
        spacing: Theme.blockSpacing

        UtilityHeader {
            id: header

            Layout.fillWidth: true
            Layout.bottomMargin: Theme.small
            section: view.section
            subtitle: view.help
        }

        RowLayout {
            spacing: Theme.rowSpacing

            PushButton {
                text: view.chooseText
                systemImage: "folder.badge.plus"
                onClicked: view.folderAskedFor()
            }

            // Takes all the room there is, so that the buttons stay where they are when a folder is chosen.
            Item {
                Layout.fillWidth: true
                implicitHeight: plate.implicitHeight

                PathPlate {
                    id: plate

                    width: Math.min(implicitWidth, parent.width)
                    visible: view.folder !== undefined
                    path: view.folder?.path ?? ""
                }
            }

            ProminentButton {
                text: Texts.of("scan")
                systemImage: "magnifyingglass"
                enabled: view.canScan
                onClicked: view.scanAskedFor()
            }
        }

        Flow {
            Layout.fillWidth: true
            spacing: 18

            Repeater {
                model: view.categories

                CheckMark {
                    required property var modelData

                    text: Texts.of(modelData.textKey)
                    checked: view.selectedCategories.includes(modelData.category)
                    onToggled: view.categoryToggled(modelData.category)
                }
            }
        }

        UtilityCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !view.files.isEmpty
            padding: 0

            ColumnLayout {
                anchors.fill: parent
                spacing: 0

                RowLayout {
                    Layout.fillWidth: true
                    Layout.maximumWidth: 2 * Theme.pillWidth
                    Layout.margins: Theme.medium
                    spacing: Theme.rowSpacing

                    MetricPill {
                        Layout.fillWidth: true
                        Layout.maximumWidth: Theme.pillWidth
                        Layout.preferredWidth: Theme.pillWidth
                        title: Texts.of("items")
                        value: view.files.count
                        systemImage: "doc.on.doc"
                    }

                    MetricPill {
                        Layout.fillWidth: true
                        Layout.maximumWidth: Theme.pillWidth
                        Layout.preferredWidth: Theme.pillWidth
                        title: Texts.of("size")
                        value: view.files.totalSizeText
                        systemImage: "internaldrive"
                    }
                }

                Divider {
                    Layout.fillWidth: true
                }

                FoundList {
                    id: list

                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.bottomMargin: Theme.small
                    model: view.files
                    Accessible.name: Texts.of("items")
                    onGoTo: row => makeCurrent(row)
                    onRevealAskedFor: row => view.revealAskedFor(row)
                    Keys.onReturnPressed: event => event.isAutoRepeat || view.revealAskedFor(currentIndex)
                    Keys.onEnterPressed: event => event.isAutoRepeat || view.revealAskedFor(currentIndex)

                    delegate: FoundRow {
                        id: row

                        nameFont: Theme.bodyMedium
                        hasOtherTip: reveal.hovered
                        trailing: IconButton {
                            id: reveal

                            focusPolicy: Qt.NoFocus
                            text: Texts.of("show_in_finder")
                            systemImage: "folder"
                            onClicked: view.revealAskedFor(row.index)
                        }
                    }
                }
            }
        }

        EmptyState {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: view.files.isEmpty
            title: view.emptyTitle
            description: view.viewModel.statusMessage || view.help
            systemImage: view.section.symbol
        }
    }
}
