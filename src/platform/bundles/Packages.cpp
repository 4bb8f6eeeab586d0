#include "Packages.h"

#include "Url.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

namespace {

// Source: the file name extensions of Apple's uniform type identifiers that conform to com.apple.package, as in
// its list of system-declared types and as its own programs declare them. A framework conforms to com.apple.bundle
// alone and is not one: without its frameworks an application would lose most of its size.
constexpr auto packageExtensions = std::to_array<QByteArrayView>({
    // programs and what extends them
    "app",
    "appex",
    "bundle",
    "dext",
    "kext",
    "mdimporter",
    "plugin",
    "prefpane",
    "qlgenerator",
    "saver",
    "systemextension",
    "wdgt",
    "workflow",
    "xpc",
    // documents
    "band",
    "dvdproj",
    "fcpbundle",
    "imovielibrary",
    "key",
    "logicx",
    "numbers",
    "pages",
    "playground",
    "rtfd",
    "scptd",
    "tvlibrary",
    "xcodeproj",
    "xcworkspace",
    // libraries of pictures and music
    "aplibrary",
    "migratedphotolibrary",
    "musiclibrary",
    "photolibrary",
    "photoslibrary",
    // installers and disk images that are folders
    "mpkg",
    "pkg",
    "sparsebundle",
});

} // namespace

bool isPackageName(QByteArrayView folderName)
{
    const auto extension = extensionOf(folderName);
    return std::ranges::any_of(packageExtensions, [extension](QByteArrayView package) {
        return package.size() == extension.size()
               && qstrnicmp(package.data(), package.size(), extension.data(), extension.size()) == 0;
    });
}
