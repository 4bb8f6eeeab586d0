#pragma once

#include <QByteArrayView>

/// Whether a folder of this name is a package: a folder that the desktop shows as one document or program, and
/// that no search enters. Told by the extension alone, whatever its case.
bool isPackageName(QByteArrayView folderName);

/// What shows a folder with another extension, or with none, to be a bundle: the folder `bundleContents` in it lists
/// `bundleInformation`.
inline constexpr QByteArrayView bundleContents = "Contents";
inline constexpr QByteArrayView bundleInformation = "Info.plist";
