#pragma once

/// From now on assistive technology is told of everything that is made of BaseButton.qml what that says of itself: its
/// role, which Qt 6.4 takes for a button's whatever is declared, and that it is disabled, which Qt 6.4 keeps to itself. Its
/// actions do what a click does. May be called again.
void installAccessibleButtons();
