import QtQuick

/// The picture of an application bundle, its corners rounded; appears when it is read and decoded, and never holds
/// up anything else.
Image {
    /// The bundle's percent-encoded file URI.
    required property string uri
    property real size: Theme.iconSide

    width: size
    height: size
    sourceSize {
        width: size
        height: size
    }
    source: uri === "" ? "" : "image://bundles/" + encodeURIComponent(uri)
    asynchronous: true
    // The provider keeps pictures itself, for as long as the bundle does not change.
    cache: false
    Accessible.ignored: true
}
