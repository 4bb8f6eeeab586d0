import QtQuick
import QtQuick.Templates as T

/// What every control that is pressed is made of: the face is its own, what a press does and what assistive technology
/// is told stands here. Return presses it like Space, but not what is ticked.
T.AbstractButton {
    id: control

    /// What assistive technology is told that it is, and is called; the rest of what it is told is AccessibleButton's.
    property int role: checkable ? Accessible.CheckBox : Accessible.Button
    property string name: text

    /// Does what a click does.
    function activate() {
        if (!enabled)
            return;
        if (checkable) {
            toggle();
            toggled();
        }
        clicked();
    }

    function activateByKey(event: var) {
        event.accepted = !checkable;
        if (!checkable && !event.isAutoRepeat)
            activate();
    }

    Accessible.role: role
    Accessible.name: name
    Keys.onReturnPressed: event => activateByKey(event)
    Keys.onEnterPressed: event => activateByKey(event)
}
