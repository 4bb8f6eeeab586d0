#pragma once

#include "Url.h"

class FileSystem;

/// The folder in which a bundle keeps everything, unless it is one of another layout.
inline constexpr QByteArrayView bundleContents = "Contents";
/// The property list with a bundle's information. One directly inside the folder of contents shows a folder to be a
/// bundle, whatever its name.
inline constexpr QByteArrayView bundleInformation = "Info.plist";

/// Where a bundle keeps what. Nothing of it need exist.
struct BundleLayout
{
    /// The property list with its information.
    Url information;
    /// Holds icons, and the translations in folders of the name LANGUAGE.lproj.
    Url resources;
    Url executables;
};

/// The layout of the folder `bundle`. Blocks; safe to call from any thread.
BundleLayout bundleLayout(const FileSystem &fileSystem, const Url &bundle);
