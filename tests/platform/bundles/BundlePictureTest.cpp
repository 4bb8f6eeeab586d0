#include "BundlePicture.h"

#include "BundleBudget.h"
#include "HostileInputs.h"
#include "IconFamily.h"
#include "InMemoryFileSystem.h"

#include <QList>

#include <gtest/gtest.h>

const QByteArray app = "/Applications/Notes.app";
const QByteArray resources = app + "/Contents/Resources/";

static QByteArray png(quint32 width, const QByteArray &firstChunk = "IHDR")
{
    return QByteArray("\x89PNG\r\n\x1a\n") + bigEndian({13}) + firstChunk + bigEndian({width, width});
}

static QByteArray family(const QList<QByteArray> &pictures)
{
    QByteArray elements;
    for (const auto &picture : pictures)
        elements += "ic07" + bigEndian({8 + static_cast<quint32>(picture.size())}) + picture;
    return "icns" + bigEndian({8 + static_cast<quint32>(elements.size())}) + elements;
}

struct BundlePictureTest : testing::Test
{
    void information(const QByteArray &text)
    {
        disk.remove(app + "/Contents/Info.plist");
        disk.fileWithContent(app + "/Contents/Info.plist", text);
    }
    QByteArray icon() const
    {
        BundleBudget budget;
        return bundlePicture(disk, disk.url(app), budget);
    }

    InMemoryFileSystem disk;
};

TEST(IconFamilyTest, theSmallestSufficientPictureIsChosen)
{
    EXPECT_EQ(bestPicture(family({png(16), png(1024), png(256), png(512)})), png(256));
    EXPECT_EQ(bestPicture(family({png(32), png(128), "old pixels"})), png(128));
    const auto old = family({"old pixels"});
    EXPECT_EQ(bestPicture(old), old);
    EXPECT_EQ(bestPicture(family({png(64), png(2049), png(512, "CgBI")})), png(64)) << "what is too wide is none";
    EXPECT_EQ(bestPicture(family({png(64), png(2048)})), png(2048));
    EXPECT_EQ(bestPicture(family({"", png(64)})), png(64)) << "an empty element in front";
    for (const auto &none : {QByteArray("no icons"), "icns" + bigEndian({16}) + "ic07" + bigEndian({0})})
        EXPECT_EQ(bestPicture(none), "") << none.toHex().data();
}

TEST_F(BundlePictureTest, theNamedIconIsFoundWithAndWithoutExtension)
{
    disk.fileWithContent(resources + "note.icns", family({png(256)}));
    for (const auto *name : {"note", "note.icns"}) {
        information(QByteArray("{ CFBundleIconFile = ") + name + "; }");
        EXPECT_EQ(icon(), png(256)) << name;
    }
    information("{ CFBundleIconFile = \"../note\"; CFBundleIcons = (); CFBundleIconFiles = { a = b; }; }");
    EXPECT_EQ(icon(), "");
    disk.fileWithContent(resources + "AppIcon.png", png(100));
    EXPECT_EQ(icon(), png(100)) << "a loose icon of the usual name";
}

TEST_F(BundlePictureTest, ofAnIconsVariantsTheWidestCounts)
{
    information("{ CFBundleIcons = { CFBundlePrimaryIcon = { CFBundleIconFiles = (Small, Icon60x60); }; }; }");
    disk.fileWithContent(resources + "Icon60x60@2x.png", png(120));
    disk.fileWithContent(resources + "Icon60x60@3x.png", png(180));
    disk.fileWithContent(resources + "Icon60x60@3x~ipad.png", png(190, "CgBI"));
    disk.fileWithContent(resources + "Other.png", png(512));
    EXPECT_EQ(icon(), png(180));
}
