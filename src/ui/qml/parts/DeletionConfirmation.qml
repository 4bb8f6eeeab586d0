import QtQuick
import Tarnvale

/// Asks whether to move what `request` names. Anything but its button means no.
AlertPanel {
    id: confirmation

    /// The DeletionRequest that is shown, and that the answer is about.
    property var request

    function ask(pending: var) {
        request = pending;
        open();
    }

    title: Texts.of("confirm_title")
    message: Presentation.confirmationMessage(request, Texts.language)
    systemImage: "trash"
    tint: "red"

    PushButton {
        text: Texts.of("move_to_trash")
        ink: Theme.destructiveInk
        onClicked: confirmation.accept()
    }

    ProminentButton {
        focus: true
        text: Texts.of("cancel")
        onClicked: confirmation.reject()
    }
}
