import QtQuick
import Tarnvale

/// A text with numbers that change, or that stand below one another: all digits are of one width. Not told of by itself.
TextEdit {
    id: figures

    readOnly: true
    enabled: false
    activeFocusOnPress: false
    textFormat: TextEdit.PlainText
    color: Theme.primary
    font: Theme.body
    Accessible.ignored: true

    DigitCells {
        document: figures.textDocument
        font: figures.font
    }
}
