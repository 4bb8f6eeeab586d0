/// The button for what takes something away.

PushButton {
    fill: Theme.destructiveFill
    edge: "transparent"
    ink: Theme.inkOnFill
    hoverWash: Theme.fillHoverWash
    pressWash: Theme.fillPressWash
}
