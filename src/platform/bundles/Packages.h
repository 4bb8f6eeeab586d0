#pragma once

#include <QByteArrayView>

/// Whether a folder of this name is a package: a folder that the desktop shows as one document or program, and
/// that no search enters. Told by the extension alone, whatever its case.
bool isPackageName(QByteArrayView folderName);
