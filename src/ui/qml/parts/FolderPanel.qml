import QtQuick.Dialogs
import Tarnvale

/// A dialog for choosing a folder: that of the desktop's Qt theme, or Qt's own.
FolderDialog {
    rejectLabel: Texts.of("cancel")
}
