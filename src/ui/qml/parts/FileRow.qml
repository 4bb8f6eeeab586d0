import QtQuick

/// A found item with the check box that marks it for removal.
FoundRow {
    id: row

    required property bool isSelected
    required property string matchKey

    signal toggled(bool isOn)

    function toggle() {
        toggled(!isSelected);
    }

    symbolWeight: Font.DemiBold
    match: Texts.of(matchKey)
    tick: isSelected ? Texts.of("selected") : ""
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onToggleAction: toggle()
    Accessible.onPressAction: toggle()
    leading: CheckMark {
        focusPolicy: Qt.NoFocus
        checked: row.isSelected
        name: row.name
        onToggled: row.toggled(checked)
    }
}
