import QtQuick
import QtQuick.Layouts
import Tarnvale

/// The application whose files are listed below.
UtilityCard {
    id: card

    /// An InstalledApplication; undefined where there is none.
    required property var application

    padding: 14
    implicitHeight: face.implicitHeight + 2 * padding

    RowLayout {
        id: face

        anchors.fill: parent
        spacing: Theme.blockSpacing

        BundleIcon {
            size: 48
            uri: card.application?.url.uri ?? ""
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            ElidedText {
                Layout.fillWidth: true
                text: card.application?.name ?? ""
                font: Theme.title3
            }

            ElidedText {
                Layout.fillWidth: true
                text: card.application?.bundleIdentifier ?? ""
                font: Theme.captionMonospaced
                color: Theme.secondary
            }
        }

        ColumnLayout {
            Layout.fillWidth: false
            spacing: 5

            LabelledText {
                Layout.alignment: Qt.AlignRight
                Layout.fillWidth: false
                label: Texts.of("size")
                value: Presentation.sizeText(card.application?.sizeBytes ?? 0)
            }

            SystemBadge {
                Layout.alignment: Qt.AlignRight
                visible: card.application?.isSystemApplication ?? false
            }
        }
    }
}
