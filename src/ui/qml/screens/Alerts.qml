import QtQuick
import Tarnvale

/// The two alerts of the program, driven by the state. Where both are due, one is shown after the other.
Item {
    id: alerts

    required property AppViewModel viewModel

    /// One opens, and says this.
    signal told(string text)

    function present() {
        if (notice.visible || confirmation.visible)
            return;
        if (viewModel.pendingDeletion !== undefined)
            confirmation.ask(viewModel.pendingDeletion);
        else if (viewModel.userNotice !== undefined)
            notice.tell(viewModel.userNotice);
    }

    Component.onCompleted: present()

    Connections {
        function onPendingDeletionChanged() {
            if (alerts.viewModel.pendingDeletion === undefined)
                confirmation.close();
            alerts.present();
        }

        function onUserNoticeChanged() {
            if (alerts.viewModel.userNotice === undefined)
                notice.close();
            else if (notice.visible)
                notice.tell(alerts.viewModel.userNotice);
            alerts.present();
        }

        target: alerts.viewModel
    }

    NoticeAlert {
        id: notice

        onOpened: alerts.told(title + "\n" + message)
        onRejected: alerts.viewModel.dismissNotice()
        onClosed: Qt.callLater(alerts.present) // qmllint disable
    }

    DeletionConfirmation {
        id: confirmation

        onOpened: alerts.told(title + "\n" + message)
        onAccepted: alerts.viewModel.confirmDeletion(request)
        onRejected: alerts.viewModel.cancelDeletion()
        onClosed: Qt.callLater(alerts.present) // qmllint disable
    }
}
