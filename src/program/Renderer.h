#pragma once

#include <QString>

/// Has windows drawn by Qt's software renderer where Qt's own would find no graphics card: it then draws with OpenGL in
/// software, for which it takes twice the time and 100 MiB more. What the user has set for Qt's renderer stays. On the main
/// thread, before the first window.
void chooseRenderer();

/// Whether nothing among the devices in this folder draws for programs. Looks at a few files and asks no OpenGL.
bool lacksGraphicsCard(const QString &devices);
