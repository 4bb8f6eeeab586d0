import QtQuick

/// Text as it stands: no markup, no mnemonics, whatever a file's name may hold.
Text {
    textFormat: Text.PlainText
    color: Theme.primary
    font: Theme.body
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""
}
