#include "ApplicationCatalogScanner.h"
#include "LeftoverScanner.h"
#include "LinuxApplicationRegistry.h"
#include "TestDisk.h"

#include <gmock/gmock.h>

using testing::IsEmpty;

/// A disk as people have it: thirty applications in every place where they are kept, with what they contain and
/// with data under the identifiers of all of it.
class FalseLeftoverTest : public testing::Test
{
protected:
    TestDisk disk;

    FalseLeftoverTest()
    {
        for (int i = 0; i < 30; ++i) {
            const auto path = QByteArray(places[i % std::size(places)]) + "/App " + QByteArray::number(i) + ".app";
            install(path, "com.vendor" + QByteArray::number(i % 7) + ".App-" + QByteArray::number(i));
        }
        disk.file("/usr/share/applications/org.desktop.Viewer.desktop");
        keepDataOf("org.desktop.Viewer");
    }

    QByteArrayList leftovers() const
    {
        const LinuxApplicationRegistry registry({}, disk, disk.bundles);
        QSet<QString> listed;
        for (const auto &application : ApplicationCatalogScanner(disk, disk.bundles).scanApplications())
            listed.insert(application.bundleIdentifier);
        return pathsOf(LeftoverScanner(disk, registry).scanLeftovers(listed));
    }

private:
    static constexpr const char *places[] = {
        "/Applications",        "/Applications/Utilities", "/Applications/Suite/Tools",     "~/Applications",
        "~/Applications/Games", "/System/Applications",    "/System/Applications/Utilities"};

    void install(const QByteArray &path, const QByteArray &identifier)
    {
        const QByteArray contents = path + "/Contents";
        const std::pair<QByteArray, QByteArray> bundles[] = {
            {path, identifier},
            {contents + "/Library/LoginItems/Starter.app", identifier + ".starter"},
            {contents + "/Frameworks/App Helper (GPU).app", identifier + ".helper.GPU"},
            {contents + "/PlugIns/Share.appex", identifier + ".share"},
            {contents + "/XPCServices/Sync.xpc", identifier + ".sync"}};
        for (const auto &[place, name] : bundles) {
            disk.application(place, {.identifier = QString::fromUtf8(name)});
            keepDataOf(name);
        }
    }

    void keepDataOf(const QByteArray &identifier)
    {
        for (const auto *folder : {"Caches", "Containers", "HTTPStorages", "WebKit"})
            disk.file(QByteArray("~/Library/") + folder + '/' + identifier + "/data");
        disk.file("~/Library/Saved Application State/" + identifier + ".savedState/data");
    }
};

TEST_F(FalseLeftoverTest, onlyWhatARemovedApplicationLeftIsOffered)
{
    EXPECT_THAT(leftovers(), IsEmpty());
    disk.remove("/Applications/App 7.app");
    const auto found = leftovers();
    EXPECT_EQ(found.size(), 5 * 5);
    for (const auto &path : found)
        EXPECT_TRUE(path.contains("/com.vendor0.App-7.") || path.endsWith("/com.vendor0.App-7"))
            << path.toStdString();
}
