#pragma once

#include <QByteArray>

/// Has the desktop's file manager show the item at `path` of this computer selected in its folder; where no file
/// manager offers that, opens the folder. Nothing happens where neither can be had. Returns at once.
void showInFileManager(const QByteArray &path);
