#include "SymbolProvider.h"

#include "Presentation.h"
#include "ShadowProvider.h"
#include "Symbols.h"

#include <QColor>
#include <QDirIterator>
#include <QFile>
#include <QFont>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

namespace {

constexpr auto side = 96;

/// What can be seen of a drawing.
struct Ink
{
    explicit Ink(const QImage &image)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const auto alpha = qAlpha(image.pixel(x, y));
                amount += alpha;
                if (alpha > 32)
                    place |= QRect(x, y, 1, 1);
            }
        }
    }
    QRect place;
    int amount = 0;
};

/// Every symbol that a screen or a table names.
QSet<QString> namedSymbols()
{
    QSet<QString> names;
    static const QRegularExpression literal(
        "(?<!\\.)\\b(?:systemImage|gaugeImage|name): [^\\n\"(]*\"([a-z0-9.]+)\"");
    QDirIterator files(":/qt/qml/Tarnvale", {"*.qml"});
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        auto matches = literal.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            names.insert(matches.next().captured(1));
    }
    for (const auto section : allCases<SidebarSelection>())
        names.insert(sidebarSymbol(section).toString());
    const auto insertTiles = [&names](const auto &cases) {
        for (const auto value : cases)
            names.insert(symbolTile(value).symbol.toString());
    };
    insertTiles(allCases<ScanItemKind>());
    insertTiles(allCases<MediaCategory>());
    insertTiles(allCases<TextFileCategory>());
    return names;
}

TEST(Symbols, everyNameThatTheWindowUsesIsDrawn)
{
    const auto drawn = SymbolProvider::names();
    for (const auto &name : namedSymbols())
        EXPECT_TRUE(drawn.contains(name)) << qPrintable(name);
}

TEST(Symbols, areOneFamilyInSizePlaceAndWeight)
{
    for (const auto &name : SymbolProvider::names()) {
        SCOPED_TRACE(qPrintable(name));
        const Ink heavy(SymbolProvider::draw(name, side, QFont::DemiBold, Qt::red));
        // Nothing is cut off at the edge, nothing is small, nothing hangs to one side: 24 units are 96 pixels.
        EXPECT_TRUE(QRect(2, 2, side - 4, side - 4).contains(heavy.place));
        EXPECT_GE(std::max(heavy.place.width(), heavy.place.height()), 58);
        EXPECT_LE(std::abs(heavy.place.center().x() - side / 2), 6);
        EXPECT_LE(std::abs(heavy.place.center().y() - side / 2), 6);

        const Ink light(SymbolProvider::draw(name, side, QFont::Normal, Qt::red));
        if (!name.endsWith(u".fill")) {
            EXPECT_GT(heavy.amount, light.amount * 1.1) << "the drawing does not follow the weight of the text";
        }
    }
}

TEST(Symbols, takeTheColourAndTheSizeOfTheRequest)
{
    SymbolProvider provider;
    QSize size;
    const auto image = provider.requestImage("lock.fill/600/80ff0000", &size, {40, 40});
    EXPECT_EQ(size, QSize(40, 40));
    EXPECT_EQ(image.pixelColor(20, 27), QColor(255, 0, 0, 128));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_TRUE(provider.requestImage("no.such.symbol/400/000000", &size, {40, 40}).isNull());
}

TEST(Shadows, areDeepInsideFadeOutwardsAndStretchInTheMiddle)
{
    constexpr auto radius = 12;
    constexpr auto blur = 8;
    const auto shadow = ShadowProvider::draw(radius, blur);
    const auto middle = shadow.width() / 2;
    const auto alpha = [&shadow](int x, int y) { return qAlpha(shadow.pixel(x, y)); };

    EXPECT_EQ(alpha(middle, middle), 255);
    EXPECT_EQ(alpha(0, middle), 0);
    EXPECT_NEAR(alpha(2 * blur, middle), 128, 12) << "the edge of the shape";
    for (int x = 1; x <= middle; ++x) {
        EXPECT_GE(alpha(x, middle), alpha(x - 1, middle));
        EXPECT_EQ(alpha(x, middle), alpha(shadow.width() - 1 - x, middle));
        EXPECT_EQ(alpha(x, middle), alpha(middle, x));
    }
    // What stands beside the pixel that is stretched looks like it.
    for (int y = 0; y < shadow.height(); ++y)
        EXPECT_NEAR(alpha(middle, y), alpha(middle - 1, y), 1);
}

} // namespace
