import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tarnvale

/// An alert in the middle of the window, above everything else. Escape rejects it.
T.Dialog {
    id: panel

    property string message
    property string systemImage
    property string tint: "blue"
    /// From the first to the last; the default one has `focus`.
    default property alias actions: actionRow.data

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(440, parent ? parent.width - 2 * Theme.screenPadding : 440)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.cardPadding
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    contentItem: RowLayout {
        spacing: Theme.large
        Accessible.role: Accessible.AlertMessage
        Accessible.name: panel.title
        Accessible.description: panel.message
        Keys.onPressed: event => area.scrollByKey(event)

        IconTile {
            Layout.alignment: Qt.AlignTop
            implicitWidth: Theme.largeTileSide
            implicitHeight: Theme.largeTileSide
            radius: Theme.largeTileRadius
            systemImage: panel.systemImage
            tint: panel.tint
            weight: Font.DemiBold
        }

        ColumnLayout {
            spacing: Theme.regular

            PlainText {
                Layout.fillWidth: true
                Layout.topMargin: Theme.tight
                text: panel.title
                font: Theme.title3
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
            }

            ScrollArea {
                id: area

                Layout.fillWidth: true
                Layout.preferredHeight: Math.ceil(body.implicitHeight)
                Layout.maximumHeight: 340
                contentHeight: body.implicitHeight

                PlainText {
                    id: body

                    width: parent.width - Theme.scrollBarWidth
                    text: panel.message
                    color: Theme.secondary
                    lineHeight: Theme.paragraphLineHeight
                    wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                }
            }

            RowLayout {
                id: actionRow

                Layout.alignment: Qt.AlignRight
                Layout.topMargin: Theme.medium
                spacing: Theme.rowSpacing
            }
        }
    }
    background: ContinuousRectangle {
        radius: Theme.cardRadius
        color: Theme.alertFill
        borderColor: Theme.controlEdge
        borderWidth: Theme.lineWidth

        SoftShadow {
            radius: Theme.cardRadius
            blur: 24
            offsetY: 12
            opacity: Theme.alertShadowOpacity
        }
    }
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.briefly
        }
    }

    T.Overlay.modal: Rectangle {
        color: Theme.dim
    }
}
