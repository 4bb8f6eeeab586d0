import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// The content of the window: the sidebar and, beside it, the screen of its selection, which takes the keyboard.
FocusKeeper {
    id: content

    required property AppViewModel viewModel

    focus: true
    home: (screen.item as SectionView)?.main ?? null
    isBusy: viewModel.isProcessing

    T.SplitView {
        anchors.fill: parent

        handle: Item {
            implicitWidth: 1

            // Wide enough to take hold of, and above both columns.
            containmentMask: Item {
                x: -4
                width: 9
                height: content.height
            }

            Rectangle {
                anchors.fill: parent
                color: Theme.screenBackground
            }

            Divider {
                anchors.fill: parent
            }
        }

        SidebarView {
            id: sidebar

            T.SplitView.minimumWidth: 230
            T.SplitView.preferredWidth: 245
            T.SplitView.maximumWidth: 280
            viewModel: content.viewModel
            onEntered: content.goHome()
        }

        Item {
            T.SplitView.fillWidth: true

            Rectangle {
                anchors.fill: parent
                color: Theme.screenBackground
            }

            Loader {
                id: screen

                anchors {
                    left: parent.left
                    right: parent.right
                    top: parent.top
                    bottom: statusBar.visible ? statusBar.top : parent.bottom
                }
                focus: true
                onLoaded: {
                    if (!sidebar.activeFocus)
                        content.goHome();
                }
                Component.onCompleted: show(content.viewModel.sidebarSelection)

                function show(selection: int) {
                    const section = Presentation.section(selection);
                    setSource(section.view + ".qml", {
                        "viewModel": content.viewModel,
                        "section": section
                    });
                }

                Connections {
                    function onSidebarSelectionChanged() {
                        screen.show(content.viewModel.sidebarSelection);
                    }

                    target: content.viewModel
                }
            }

            BusyPlate {
                // In the middle, or behind a title that reaches there.
                x: Math.max((parent.width - width) / 2, ((screen.item as SectionView)?.titleEnd ?? 0) + Theme.regular)
                y: Theme.regular
                visible: content.viewModel.isProcessing
                name: content.viewModel.statusMessage
            }

            StatusBar {
                id: statusBar

                anchors {
                    left: parent.left
                    right: parent.right
                    bottom: parent.bottom
                }
                visible: message !== "" && !content.viewModel.isProcessing
                message: content.viewModel.statusMessage
            }
        }
    }

    // The work that begins and how it ended, and what an alert asks or says.
    Announcer {
        id: announcer

        Accessible.role: Accessible.Notification
        Accessible.name: text
        Accessible.ignored: text === ""

        Connections {
            function onStatusMessageChanged() {
                announcer.say(content.viewModel.statusMessage);
            }

            target: content.viewModel
        }
    }

    Alerts {
        viewModel: content.viewModel
        onTold: text => announcer.say(text)
    }
}
