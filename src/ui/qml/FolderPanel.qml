import QtQuick.Dialogs

/// The desktop's own dialog for choosing a folder.
FolderDialog {
}
