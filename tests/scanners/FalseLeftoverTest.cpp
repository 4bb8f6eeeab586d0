#include "ApplicationCatalogScanner.h"
#include "DiskBundleReader.h"
#include "LeftoverScanner.h"
#include "LinuxApplicationRegistry.h"
#include "TestDisk.h"

#include <gmock/gmock.h>

using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

/// Something installed: its bundle, or its information where that lies elsewhere than in "Contents", and its identifier.
struct Installed
{
    QByteArray place;
    QByteArray identifier;
};

// clang-format off
const QByteArray framework("/Applications/Browser.app/Contents/Frameworks/Browser Framework.framework/Versions/119.0.1");

// The shapes that programs have and the places where they are kept, as they are met on people's disks.
const Installed everythingInstalled[] = {
    // A browser, whose helpers lie in its framework under the number of its version.
    {"/Applications/Browser.app", "com.vendor.Browser"},
    {framework + "/Resources/Info.plist", "com.vendor.Browser.framework"},
    {framework + "/Helpers/Browser Helper.app", "com.vendor.Browser.helper"},
    {framework + "/Helpers/Updater.app/Contents/Helpers/UpdaterAgent.bundle/Contents/Resources/Agent.app", "com.vendor.Browser.UpdaterAgent"},
    // A program made of a browser, and what updates it.
    {"~/Applications/Chat.app", "org.chat.Client"},
    {"~/Applications/Chat.app/Contents/Frameworks/Chat Helper (GPU).app", "org.chat.Client.gpu"},
    {"~/Applications/Chat.app/Contents/Frameworks/Updates.framework/Versions/B/XPCServices/Downloader.xpc", "org.updates.Downloader"},
    // What extends the system, out of one program.
    {"/Applications/Guard.app", "net.guard.mac"},
    {"/Applications/Guard.app/Contents/Library/LoginItems/Starter.app", "net.guard.mac.starter"},
    {"/Applications/Guard.app/Contents/Library/SystemExtensions/net.guard.mac.filter.systemextension", "net.guard.mac.filter"},
    {"/Applications/Guard.app/Contents/PlugIns/Share.appex", "net.guard.mac.share"},
    {"/Applications/Guard.app/Contents/PlugIns/Share.appex/Contents/XPCServices/Deep.xpc", "net.guard.mac.share.deep"},
    {"/Applications/Guard.app/Contents/Resources/Uninstall.app", "net.guard.uninstall"},
    // A program of the Mac's smaller relatives, in its wrapper.
    {"/Applications/Phone.app/Wrapper/Phone.app/Info.plist", "com.phone.App"},
    {"/Applications/Phone.app/Wrapper/Phone.app/PlugIns/Widget.appex/Info.plist", "com.phone.App.widget"},
    // Suites and folders that people sort into.
    {"/Applications/Utilities/Console.app", "com.vendor.Console"},
    {"/Applications/Suite 2024/Shared/Tools/Setup/Activator.app", "com.suite.Activator"},
    {"~/Applications/Web Apps.localized/Mail.app", "com.vendor.Browser.app.mail"},
    {"/System/Applications/Utilities/Disk.app", "com.system.disk"},
    {"/System/Library/CoreServices/Menu.bundle", "com.system.menu"},
    // Never installed, and elsewhere.
    {"~/Downloads/Tool.app", "io.tool.mac"},
    {"~/Downloads/Other 1.2/Other.app", "io.other.mac"},
    {"~/Desktop/Trial.app", "io.trial.mac"},
    {"~/Documents/Project/build/Debug/Mine.app", "me.mine.app"},
    {"~/Games/Chess/Chess.app", "io.chess.mac"},
    {"/Users/Shared/Games/Agent/Agent.app", "io.games.agent"},
    {"/opt/packages/Cellar/editor/Editor.app", "org.editor.mac"},
    {"/usr/local/Caskroom/sheet/1.0/Sheet.app", "org.sheet.mac"},
    {"/Volumes/Big/Applications/Games/Race/Race.app", "io.race.mac"},
    {"/Volumes/Disk Image/Install.app", "io.install.mac"},
    {"/elsewhere/Programs/Linked.app", "io.linked.folder"},
    {"/elsewhere/Moved.app", "io.linked.app"},
    // What is no application, in the places of its kind.
    {"~/Library/PreferencePanes/Pane.prefPane", "org.extras.pane"},
    {"~/Library/Services/Convert.service", "org.extras.service"},
    {"~/Library/Input Methods/Kana.app", "org.extras.inputmethod.Kana"},
    {"/Library/Audio/Plug-Ins/VST3/Vendor/Synth.vst3", "org.extras.synth"},
    {"/Library/Frameworks/Stats.framework/Versions/4.2/Resources/Info.plist", "org.extras.framework"},
    {"/Library/Vendor/Update/Update.bundle", "com.vendor.Update"},
    {"/Library/Vendor/Update/Update.bundle/Contents/Resources/Agent.app", "com.vendor.Keeper"},
    {"~/Library/Application Support/Store/apps/common/Game/Game.app", "io.store.game"},
    {"/Library/Application Support/Vendor/Updater/Updater.app", "com.vendor.Updater"},
};
// clang-format on

static QByteArray informationOf(const QByteArray &place)
{
    return place.endsWith("/Info.plist") ? place : place + "/Contents/Info.plist";
}

/// A disk as people have it, with data of everything that is installed.
struct FalseLeftoverTest : testing::Test
{
    TestDisk disk;

    FalseLeftoverTest()
    {
        for (const auto &[place, identifier] : everythingInstalled) {
            disk.information(informationOf(place), identifier);
            keepDataOf(identifier);
        }
        disk.link("/Applications/Phone.app/WrappedBundle", "Wrapper/Phone.app");
        disk.link("/Library/Frameworks/Stats.framework/Versions/Current", "4.2");
        disk.link("/Library/Frameworks/Stats.framework/Resources", "Versions/Current/Resources");
        disk.link("/Applications/Programs", "/elsewhere/Programs");
        disk.link("/Applications/Moved.app", "/elsewhere/Moved.app");
        disk.link("/Applications/Utilities/Back", "/Applications");
        disk.link("/Volumes/Startup", "/");
        disk.file("/usr/share/applications/org.desktop.Viewer.desktop");
        keepDataOf("org.desktop.Viewer");
    }

    QByteArrayList leftovers() const
    {
        const LinuxApplicationRegistry registry({}, disk);
        const DiskBundleReader bundles(disk, {});
        QSet<QString> listed;
        for (const auto &application : ApplicationCatalogScanner(disk, bundles).scanApplications())
            listed.insert(application.bundleIdentifier);
        return pathsOf(LeftoverScanner(disk, registry).scanLeftovers(listed));
    }

    static QByteArrayList dataOf(const QByteArray &identifier)
    {
        return {"~/Library/Caches/" + identifier, "~/Library/Containers/" + identifier,
                "~/Library/HTTPStorages/" + identifier, "~/Library/WebKit/" + identifier,
                "~/Library/Saved Application State/" + identifier + ".savedState"};
    }

    void keepDataOf(const QByteArray &identifier)
    {
        for (const auto &path : dataOf(identifier))
            disk.file(path + "/data");
    }
};

TEST_F(FalseLeftoverTest, nothingThatIsInstalledIsOffered)
{
    // Identifiers are the same in any case and in any canonical spelling.
    keepDataOf("com.vendor.browser.HELPER");
    disk.information("/Applications/Utilities/Tools.app/Contents/PlugIns/a.appex/Contents/Info.plist",
                     "pl.\u017b\u00f3\u0142w.Share");
    keepDataOf("PL.z\u0307o\u0301\u0142w.share");
    EXPECT_THAT(leftovers(), IsEmpty());
}

TEST_F(FalseLeftoverTest, whatIsRemovedIsOffered)
{
    QByteArrayList orphaned;
    for (const auto &[place, identifier] : everythingInstalled) {
        disk.remove(informationOf(place));
        orphaned += dataOf(identifier);
    }
    // What an update left among the data keeps nothing from being offered.
    disk.information("~/Library/Caches/com.vendor.Browser/Update/Browser.app/Contents/Info.plist",
                     "com.vendor.Browser");
    disk.information("~/Library/Containers/io.tool.mac/Data/Tool.app/Contents/Info.plist", "io.tool.mac");

    EXPECT_THAT(leftovers(), UnorderedElementsAreArray(orphaned));
}
