#include "BundleSearch.h"

#include "TestDisk.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Links = BundleSearch::Links;

struct BundleSearchTest : testing::Test
{
    TestDisk disk;
    std::stop_source stop;

    /// "IDENTIFIER PATH" of each bundle, as they are found.
    QByteArrayList found(const QList<BundleSearch::Place> &places) const
    {
        QByteArrayList result;
        const auto add = [&result](const QString &identifier, const Url &bundle) {
            result.append(identifier.toUtf8() + ' ' + bundle.path());
        };
        BundleSearch search(disk, add, stop.get_token());
        search.search(places);
        return result;
    }
    qsizetype countOf(const QByteArray &bundle)
    {
        disk.information(bundle + "/Contents/Info.plist", "org.outer");
        return found({{Url("/A"), 1, Links::kept}}).size();
    }
};

TEST_F(BundleSearchTest, bundlesLieAsDeepAsTheirPlaceSaysAndAPlaceInsideOfAnotherIsSearchedAsItselfAlone)
{
    for (const QByteArray path :
         {"1.app/Contents", "1.app/Tool/Contents", "1.app/Contents/Helper.app/Contents",
          "Folder/2.Framework/Resources", "Folder/More/3.app/Contents", "No bundle.app/4.app",
          "No bundle.app/More/5.app", "", ".hidden.app", "Deeper/1/2/6.app", "Data/7.app"})
        disk.information("/A/" + path + "/Info.plist", "in " + path);
    disk.information("/A/1.app/Contents/version.plist", "org.version");

    // From the outside in, in the order of the places.
    EXPECT_THAT(found({{Url("/A/Deeper"), 3, Links::kept},
                       {Url("/A"), 2, Links::kept},
                       {Url("/A/Data"), 0, Links::kept},
                       {Url("/A"), 9, Links::kept},
                       {Url("/missing"), 9, Links::kept}}),
                ElementsAre("in Deeper/1/2/6.app /A/Deeper/1/2/6.app", "in 1.app/Contents /A/1.app",
                            "in Folder/2.Framework/Resources /A/Folder/2.Framework",
                            "in 1.app/Contents/Helper.app/Contents /A/1.app/Contents/Helper.app",
                            "in 1.app/Tool/Contents /A/1.app/Tool",
                            "in No bundle.app/4.app /A/No bundle.app/4.app"));
}

TEST_F(BundleSearchTest, linksAreFollowedWhereThePlaceSaysAndNeverInCircles)
{
    disk.information("/elsewhere/Linked/1.app/Info.plist", "org.first");
    disk.information("/moved/2/Contents/Info.plist", "org.second");
    disk.information("/A/3.app/Contents/Info.plist", "org.third");
    disk.link("/A/Linked", "/elsewhere/Linked");
    disk.link("/A/Linked again", "/elsewhere/Linked");
    disk.link("/A/2.app", "/moved/2");
    disk.link("/A/circle", "/A");
    disk.link("/elsewhere/Linked/circle", "/elsewhere");
    disk.link("/A/3.app/Contents/Library", "/moved");
    disk.link("/A/dangling", "/nowhere");
    disk.link("/place", "/A");

    EXPECT_THAT(
        found({{Url("/place"), 3, Links::followed}}),
        UnorderedElementsAre("org.first /elsewhere/Linked/1.app", "org.second /moved/2", "org.third /A/3.app"));
    EXPECT_THAT(found({{Url("/place"), 3, Links::kept}}), ElementsAre("org.third /A/3.app"));
}

TEST_F(BundleSearchTest, whatCannotBeReadHidesNothingElse)
{
    disk.information("/A/1.app/Contents/Info.plist", "org.first");
    disk.fileWithContent("/A/1.app/Contents/PlugIns/damaged.appex/Contents/Info.plist", "<plist");
    disk.fileWithContent("/A/1.app/Contents/PlugIns/list.appex/Contents/Info.plist", "(a, b)");
    disk.fileWithContent("/A/1.app/Contents/PlugIns/number.appex/Contents/Info.plist",
                         "{CFBundleIdentifier = (1);}");
    disk.information("/A/1.app/Contents/PlugIns/nameless.appex/Contents/Info.plist", "");
    disk.information("/A/1.app/Contents/PlugIns/locked.appex/Contents/Info.plist", "org.locked");
    disk.makeUnreadable("/A/1.app/Contents/PlugIns/locked.appex");
    disk.information("/A/1.app/Contents/XPCServices/whole.xpc/Contents/Info.plist", "org.whole");
    disk.information("/A/locked/2.app/Contents/Info.plist", "org.second");
    disk.makeUnreadable("/A/locked");

    EXPECT_THAT(found({{Url("/A"), 9, Links::kept}}),
                ElementsAre("org.first /A/1.app", "org.whole /A/1.app/Contents/XPCServices/whole.xpc"));
}

TEST_F(BundleSearchTest, oneBundleCannotHoldUpTheSearch)
{
    QByteArray nested = "/A/nested.app";
    for (int i = 0; i < 20; ++i, nested += "/x.app")
        disk.information(nested + "/Info.plist", "org.nested");
    EXPECT_EQ(found({{Url("/A"), 1, Links::kept}}).size(), 16);
    disk.remove("/A");

    disk.information("/A/deep.app/" + QByteArray("d/").repeated(31) + "Info.plist", "org.reached");
    disk.information("/A/deep.app/" + QByteArray("d/").repeated(32) + "Info.plist", "org.beyond");
    EXPECT_EQ(countOf("/A/deep.app"), 2);
    disk.remove("/A");

    const QByteArray padding(4 * 1024 * 1024, ' ');
    for (int i = 0; i < 10; ++i)
        disk.fileWithContent("/A/large.app/Resources/" + QByteArray::number(i) + "/Info.plist",
                             "{CFBundleIdentifier = x;}" + padding);
    EXPECT_EQ(countOf("/A/large.app"), 1 + 3);

    stop.request_stop();
    EXPECT_EQ(countOf("/A/large.app"), 0) << "nothing is read once the program quits";
}
