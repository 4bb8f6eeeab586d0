/// The button for what a screen is there for.

PushButton {
    fill: Theme.prominentFill
    edge: "transparent"
    ink: Theme.inkOnFill
    hoverWash: Theme.fillHoverWash
    pressWash: Theme.fillPressWash
}
