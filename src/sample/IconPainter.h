#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>

/// An application's icon: a rounded tile in `color` with `letter` on it.
QByteArray paintedPng(QColor color, const QString &letter, int size);

/// The same as an icon file (.icns) with pictures of 128, 256 and 512 pixels.
QByteArray paintedIcns(QColor color, const QString &letter);
