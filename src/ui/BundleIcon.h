#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

/// Pictures of application bundles, square and with rounded corners. Safe to call from any thread.
namespace BundleIcon {

/// The picture in `data`, an .icns or a PNG file, fitted into `side` pixels; a null image when it holds none that
/// can be read. `data` is hostile: nothing else is tried on it, and a picture that would take more than 32 MiB is
/// refused.
QImage decoded(const QByteArray &data, int side);

/// What stands for a bundle without a picture: its name's first letter on a tile whose colour is always the same
/// for the same name.
QImage drawn(const QString &name, int side);

} // namespace BundleIcon
