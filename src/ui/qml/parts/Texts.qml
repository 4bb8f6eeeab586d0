pragma Singleton
import QtQuick
import Tarnvale

/// The texts of the window. A binding that asks for one follows the language.
QtObject {
    /// An AppLanguage; bound by the window to the state's.
    property int language: 0

    function of(key: string): string {
        return Presentation.text(key, language);
    }

    /// The text with its placeholders replaced by `values` in order.
    function filled(key: string, values: var): string {
        return Presentation.filledText(key, language, values);
    }
}
