#include "BundleIcon.h"

#include "BundleIconProvider.h"
#include "FakeBundleReader.h"
#include "HostileInputs.h"
#include "InMemoryFileSystem.h"

#include <QBuffer>
#include <QColor>
#include <QElapsedTimer>

#include <gmock/gmock.h>

using testing::ElementsAre;

static QByteArray png(int side, const QColor &color)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QBuffer::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

static QByteArray element(const QByteArray &type, const QByteArray &content)
{
    return type + bigEndian({static_cast<quint32>(content.size()) + 8}) + content;
}

/// An .icns file in which each size has a colour of its own.
static QByteArray icns()
{
    return element("icns", element("ic09", png(512, Qt::blue)) + element("ic11", png(32, Qt::green))
                               + element("ic07", png(128, Qt::red)));
}

static QColor middleOf(const QImage &image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

TEST(BundleIcons, theSmallestPictureThatNeedsNoEnlargingIsTaken)
{
    EXPECT_EQ(middleOf(BundleIcon::decoded(icns(), 32)), QColor(Qt::green));
    EXPECT_EQ(middleOf(BundleIcon::decoded(icns(), 68)), QColor(Qt::red));
    EXPECT_EQ(middleOf(BundleIcon::decoded(icns(), 129)), QColor(Qt::blue));
    EXPECT_EQ(BundleIcon::decoded(icns(), 1024).size(), QSize(1024, 1024));
    EXPECT_EQ(middleOf(BundleIcon::decoded(png(16, Qt::red), 34)), QColor(Qt::red));
    const auto broken = element("icns", element("ic07", "\x89PNG\r\n\x1a\n" + QByteArray(40, 'x'))
                                            + element("ic09", png(512, Qt::blue)));
    EXPECT_EQ(middleOf(BundleIcon::decoded(broken, 68)), QColor(Qt::blue));
}

TEST(BundleIcons, hostileFilesGiveNoPictureAndTakeNoTimeOrMemory)
{
    // 60,000 pixels square: 13 GiB.
    auto giant = png(8, Qt::red);
    giant.replace(16, 8, bigEndian({60'000, 60'000}));
    auto claiming = element("icns", element("ic07", png(128, Qt::red)));
    claiming.replace(12, 4, bigEndian({0xfffffff0}));
    const QList<QByteArray> files{
        {},
        "icns",
        "icns" + bigEndian({0}),
        "\x89PNG",
        giant,
        element("icns", element("ic07", giant)),
        claiming,
        element("icns", QByteArray("ic07") + bigEndian({0})),
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"><rect width=\"9\" height=\"9\"/></svg>",
        png(64, Qt::red).first(60),
    };
    QElapsedTimer time;
    time.start();
    for (const auto &file : files)
        EXPECT_TRUE(BundleIcon::decoded(file, 68).isNull()) << file.toHex().constData();
    EXPECT_LT(time.elapsed(), 2000);
}

TEST(BundleIcons, aBundleWithoutPictureGetsALetterOnATileOfItsOwn)
{
    const auto tile = BundleIcon::drawn("Żuraw", 68);
    EXPECT_EQ(tile, BundleIcon::drawn("Żuraw", 68));
    EXPECT_NE(tile, BundleIcon::drawn("Notes", 68));
    EXPECT_EQ(tile.pixelColor(34, 4).alpha(), 255);
    EXPECT_EQ(tile.pixelColor(0, 0).alpha(), 0);
    auto white = 0;
    for (int i = 0; i < 68 * 68; ++i)
        white += tile.pixel(i % 68, i / 68) == 0xffffffff;
    EXPECT_GT(white, 100) << "the letter";
    EXPECT_FALSE(BundleIcon::drawn({}, 1).isNull());
}

TEST(BundleIcons, areKeptUntilTheBundleChanges)
{
    InMemoryFileSystem disk;
    FakeBundleReader bundles;
    const auto bundle = disk.folder("/Applications/Notes.app");
    disk.touch("/Applications/Notes.app", 1);
    bundles.pictures.insert(bundle, png(64, Qt::red));
    BundleIconProvider provider(bundles, disk);

    EXPECT_EQ(middleOf(provider.icon(bundle, 34)), QColor(Qt::red));
    bundles.pictures.insert(bundle, png(64, Qt::blue));
    EXPECT_EQ(middleOf(provider.icon(bundle, 34)), QColor(Qt::red));
    EXPECT_THAT(bundles.picturesRead, ElementsAre(bundle));
    disk.touch("/Applications/Notes.app", 2);
    EXPECT_EQ(middleOf(provider.icon(bundle, 34)), QColor(Qt::blue));
}
