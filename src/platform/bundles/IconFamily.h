#pragma once

#include <QByteArray>

/// Width of the picture in pixels; 0 when `png` does not begin as a PNG that can be decoded: one in the form that
/// the Mac's smaller relatives write, or one larger than icons are, is none. Asks only the first 24 bytes.
int iconWidth(QByteArrayView png);

/// The picture of the icon family (.icns) `family` that serves best: of those that are PNG the smallest of at
/// least 256 pixels, else the largest. `family` itself when it holds none, as old ones do; empty when it is
/// damaged or none.
QByteArray bestPicture(const QByteArray &family);
