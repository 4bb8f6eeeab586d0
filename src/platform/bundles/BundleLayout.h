#pragma once

#include "Url.h"

class FileSystem;

/// Where a bundle keeps what. The folders need not exist.
struct BundleLayout
{
    /// Holds Info.plist.
    Url information;
    /// Holds icons, and the translations in folders of the name LANGUAGE.lproj.
    Url resources;
    Url executables;
};

/// The layout of the folder `bundle`. Blocks; safe to call from any thread.
BundleLayout bundleLayout(const FileSystem &fileSystem, const Url &bundle);
