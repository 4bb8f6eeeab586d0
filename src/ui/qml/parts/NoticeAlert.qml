import QtQuick

/// Tells the user what a removal could not do.
AlertPanel {
    function tell(notice: var) {
        title = notice.title;
        message = notice.message;
        open();
    }

    systemImage: "exclamationmark.triangle"
    tint: "orange"

    ProminentButton {
        focus: true
        text: Texts.of("ok")
        onClicked: reject()
    }
}
