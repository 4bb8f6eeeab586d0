import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The found items of one scope: what they take, which are to go, and the button that asks for their removal.
UtilityCard {
    id: view

    required property AppViewModel viewModel
    /// A ScanScope.
    required property int scope
    readonly property ListModelBase items: viewModel.itemModel(scope)
    /// Numbers of ScanScope.
    readonly property var deletableScopes: viewModel.deletableScopes
    property alias list: list

    padding: 0

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.maximumWidth: 3 * Theme.pillWidth
            Layout.margins: Theme.medium
            spacing: Theme.rowSpacing

            MetricPill {
                Layout.fillWidth: true
                Layout.maximumWidth: Theme.pillWidth
                Layout.preferredWidth: Theme.pillWidth
                title: Texts.of("selected")
                value: view.items.selectedSizeText
                systemImage: "checkmark.circle"
            }

            MetricPill {
                Layout.fillWidth: true
                Layout.maximumWidth: Theme.pillWidth
                Layout.preferredWidth: Theme.pillWidth
                title: Texts.of("items")
                value: view.items.count
                systemImage: "doc.on.doc"
            }

            MetricPill {
                Layout.fillWidth: true
                Layout.maximumWidth: Theme.pillWidth
                Layout.preferredWidth: Theme.pillWidth
                title: Texts.of("size")
                value: view.items.totalSizeText
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
            model: view.items
            Accessible.name: Texts.of("items")
            onGoTo: row => makeCurrent(row)
            onRevealAskedFor: row => view.viewModel.revealItem(view.scope, row)
            Keys.onSpacePressed: event => event.isAutoRepeat || toggleCurrent()
            Keys.onPressed: event => {
                if (event.matches(StandardKey.SelectAll)) {
                    event.accepted = true;
                    view.items.toggleAll();
                }
            }

            function toggleCurrent() {
                makeCurrent(currentIndex);
                (currentItem as FileRow)?.toggle();
            }

            delegate: FileRow {
                onToggled: isOn => view.items.setSelected(index, isOn)
            }
        }

        Divider {
            Layout.fillWidth: true
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.margins: Theme.medium
            Layout.leftMargin: Theme.cardPadding

            PlainText {
                Layout.fillWidth: true
                text: Texts.filled("selected_size", [view.items.selectedSizeText])
                font: Theme.calloutSemibold
                wrapMode: Text.Wrap
            }

            DestructiveButton {
                text: Texts.of("delete_selected")
                systemImage: "trash"
                enabled: view.deletableScopes.includes(view.scope)
                onClicked: view.viewModel.requestDeletion(view.scope)
            }
        }
    }
}
