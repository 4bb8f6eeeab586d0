import QtQuick
import QtQuick.Templates as T
import Tarnvale

/// A line to type in. One press of Return, however long, submits once.
T.TextField {
    id: field

    signal submitted

    implicitWidth: 240
    implicitHeight: Theme.controlHeight
    leftPadding: 10
    rightPadding: 10
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.body
    color: Theme.primary
    selectionColor: Theme.prominentFill
    selectedTextColor: Theme.inkOnFill
    placeholderTextColor: Theme.placeholder
    selectByMouse: true
    Accessible.name: placeholderText
    Keys.onPressed: event => {
        if (menu.isAskedForBy(event)) {
            event.accepted = true;
            menu.popup(field, Qt.point(cursorRectangle.x, height));
            menu.currentIndex = 0;
        }
    }
    Keys.onReturnPressed: event => event.isAutoRepeat || submitted()
    Keys.onEnterPressed: event => event.isAutoRepeat || submitted()

    background: ContinuousRectangle {
        radius: Theme.controlRadius
        color: Theme.fieldFill
        borderColor: Theme.controlEdge
        borderWidth: Theme.lineWidth

        FocusRing {
            around: parent.radius
            visible: field.activeFocus
        }
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: event => {
            field.forceActiveFocus(Qt.MouseFocusReason);
            menu.popup(field, event.position);
        }
    }

    ContextMenu {
        id: menu

        MenuEntry {
            text: StandardTexts.of(StandardTexts.Text.cut, Texts.language)
            enabled: field.selectedText !== ""
            onTriggered: field.cut()
        }

        MenuEntry {
            text: StandardTexts.of(StandardTexts.Text.copy, Texts.language)
            enabled: field.selectedText !== ""
            onTriggered: field.copy()
        }

        MenuEntry {
            text: StandardTexts.of(StandardTexts.Text.paste, Texts.language)
            enabled: field.canPaste
            onTriggered: field.paste()
        }

        MenuEntry {
            text: StandardTexts.of(StandardTexts.Text.selectAll, Texts.language)
            enabled: field.length > 0
            onTriggered: field.selectAll()
        }
    }

    PlainText {
        anchors {
            fill: parent
            leftMargin: field.leftPadding
            rightMargin: field.rightPadding
        }
        visible: field.length === 0 && field.preeditText === ""
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: field.placeholderText
        font: field.font
        color: field.placeholderTextColor
        Accessible.ignored: true
    }
}
