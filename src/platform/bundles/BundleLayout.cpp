#include "BundleLayout.h"

#include "FileSystem.h"

namespace {

struct Layout
{
    // The folder that holds the information.
    QByteArrayView information;
    QByteArrayView resources;
    QByteArrayView executables;
};
// The first that fits counts. Programs for the Mac's smaller relatives come in a wrapper on the Mac, and are like the
// last without one.
constexpr Layout layouts[] = {
    {bundleContents, "Contents/Resources", "Contents/MacOS"},
    {"Resources", "Resources", "."},
    {"Versions/Current/Resources", "Versions/Current/Resources", "Versions/Current"},
    {"WrappedBundle", "WrappedBundle", "WrappedBundle"},
    {".", ".", "."},
};

bool fits(const Layout &layout, const FileSystem &fileSystem, const Url &bundle)
{
    const auto folder = bundle / layout.information;
    // A folder of contents decides by itself: a bundle that has one is no other kind, even without information.
    return fileSystem.exists(layout.information == bundleContents ? folder : folder / bundleInformation);
}

} // namespace

BundleLayout bundleLayout(const FileSystem &fileSystem, const Url &bundle)
{
    const auto *layout = std::begin(layouts);
    while (layout != std::end(layouts) - 1 && !fits(*layout, fileSystem, bundle))
        ++layout;
    return {bundle / layout->information / bundleInformation, bundle / layout->resources,
            bundle / layout->executables};
}
