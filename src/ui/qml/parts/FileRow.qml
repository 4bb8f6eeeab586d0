import QtQuick

/// A found item with the check box that marks it for removal.
FoundRow {
    id: row

    required property bool isSelected

    signal toggled(bool isOn)

    function toggle() {
        toggled(!isSelected);
    }

    symbolWeight: Font.DemiBold
    leading: CheckMark {
        focusPolicy: Qt.NoFocus
        checked: row.isSelected
        Accessible.name: row.name
        onToggled: row.toggled(checked)
    }
}
