import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The selected application, its scan, and what the scan found.
Item {
    id: detail

    required property AppViewModel viewModel
    readonly property var application: viewModel.selectedApplication

    EmptyState {
        anchors.fill: parent
        visible: detail.application === undefined
        title: Texts.of("applications_empty_title")
        description: Texts.of("select_app")
        systemImage: "app"
    }

    ColumnLayout {
        anchors.fill: parent
        visible: detail.application !== undefined
        spacing: Theme.blockSpacing

        RowLayout {
            spacing: Theme.blockSpacing

            BundleIcon {
                size: 56
                uri: detail.application?.url.uri ?? ""
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 3

                ElidedText {
                    Layout.fillWidth: true
                    text: detail.application?.name ?? ""
                    font: Theme.detailTitle
                    elide: Text.ElideRight
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    Accessible.role: Accessible.Heading
                }

                ElidedText {
                    Layout.fillWidth: true
                    text: detail.application?.bundleIdentifier ?? ""
                    font: Theme.captionMonospaced
                    color: Theme.secondary
                }
            }
        }

        ColumnLayout {
            id: facts

            readonly property real column: Math.max(sizeLine.labelWidth, pathLine.labelWidth)

            spacing: Theme.small

            LabelledText {
                id: sizeLine

                column: facts.column
                label: Texts.of("size")
                value: Presentation.sizeText(detail.application?.sizeBytes ?? 0)
            }

            LabelledText {
                id: pathLine

                Layout.fillWidth: true
                column: facts.column
                label: Texts.of("path")
                value: detail.application ? detail.application.fileName + " — " + detail.application.folder : ""
            }
        }

        ProminentButton {
            text: Texts.of("scan_related")
            systemImage: "doc.text.magnifyingglass"
            enabled: detail.viewModel.canScan
            onClicked: detail.viewModel.scan(detail.application)
        }

        FileListView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !items.isEmpty
            viewModel: detail.viewModel
            scope: Tarnvale.ScanScope.uninstaller
        }

        EmptyState {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: detail.viewModel.associatedItems.isEmpty
            title: Texts.of("no_files")
            description: Texts.of("scan_related")
            systemImage: "doc.text.magnifyingglass"
        }
    }
}
