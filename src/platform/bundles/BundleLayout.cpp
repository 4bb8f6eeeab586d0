#include "BundleLayout.h"

#include "FileSystem.h"

namespace {

struct Layout
{
    // A bundle that has this is laid out so.
    QByteArrayView mark;
    QByteArrayView information;
    QByteArrayView resources;
    QByteArrayView executables;
};
// The first that fits counts. The last is what a bundle is without any of the marks, and what programs for the
// Mac's smaller relatives are: the Mac runs those inside of a wrapper.
constexpr Layout layouts[] = {
    {"Contents", "Contents", "Contents/Resources", "Contents/MacOS"},
    {"Resources/Info.plist", "Resources", "Resources", "."},
    {"Versions/Current/Resources/Info.plist", "Versions/Current/Resources", "Versions/Current/Resources",
     "Versions/Current"},
    {"WrappedBundle/Info.plist", "WrappedBundle", "WrappedBundle", "WrappedBundle"},
    {".", ".", ".", "."},
};

} // namespace

BundleLayout bundleLayout(const FileSystem &fileSystem, const Url &bundle)
{
    const auto *layout = std::begin(layouts);
    while (layout != std::end(layouts) - 1 && !fileSystem.exists(bundle / layout->mark))
        ++layout;
    return {bundle / layout->information, bundle / layout->resources, bundle / layout->executables};
}
