#include "DiskBundleReader.h"
#include "DiskCodeSignature.h"
#include "LinuxFileSystem.h"
#include "TemporaryDisk.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const Url bundle("/Notes.app");
constexpr const char *files[] = {
    "/Notes.app/Contents/Info.plist",
    "/Notes.app/Contents/MacOS/Notes",
    "/Notes.app/Contents/Resources/InfoPlist.loctable",
    "/Notes.app/Contents/Resources/pl.lproj/InfoPlist.strings",
    "/Notes.app/Contents/Resources/AppIcon.icns",
    "/Notes.app/Contents/Resources/AppIcon2.png",
};

/// A bundle on a real disk whose every file is something else than it should be. What files may hold is tried where
/// each form is read.
class HostileBundleTest : public testing::Test
{
protected:
    HostileBundleTest()
    {
        disk.folder("/Notes.app/Contents/Resources/pl.lproj");
        disk.folder("/Notes.app/Contents/MacOS");
    }

    /// Nothing comes out of the bundle, and this returns.
    void expectNothing() const
    {
        const DiskBundleReader reader(fileSystem, {"pl"});
        const auto opened = reader.open(bundle);
        EXPECT_TRUE(!opened || !opened->identifier());
        EXPECT_TRUE(reader.iconData(bundle).isEmpty());
        EXPECT_FALSE(DiskCodeSignature(fileSystem).entitlements(bundle));
    }

    TemporaryDisk disk;
    LinuxFileSystem fileSystem{disk.root(), Url("/home"), {}};
};

} // namespace

TEST_F(HostileBundleTest, pipes)
{
    for (const auto *file : files)
        ASSERT_EQ(mkfifo(disk.host(file).c_str(), 0644), 0);
    expectNothing();
    std::filesystem::remove(disk.host(files[0]));
    disk.file(files[0], "{ CFBundleIconFile = AppIcon; CFBundleName = Notes; }");
    EXPECT_EQ(DiskBundleReader(fileSystem, {"pl"}).open(bundle)->text("CFBundleName"), "Notes");
    expectNothing();
}

TEST_F(HostileBundleTest, linksToDevicesToThemselvesAndToTheBundle)
{
    for (const auto *target : {"/dev/zero", "AppIcon.icns", "../../Notes.app"}) {
        for (const auto *file : files) {
            std::filesystem::remove(disk.host(file));
            disk.link(file, target);
        }
        expectNothing();
    }
    std::filesystem::remove_all(disk.host("/Notes.app/Contents"));
    disk.link("/Notes.app/Contents", ".");
    expectNothing();
}

TEST_F(HostileBundleTest, hundredsOfMegabytes)
{
    for (const auto *file : files) {
        disk.file(file, "<plist><string>");
        std::filesystem::resize_file(disk.host(file), 100'000'000);
    }
    expectNothing();
}
