// What is drawn to be sharp and to stretch, looked at pixel by pixel. Run once for each renderer and scale:
//   drawing_test own|software SCALE

#include "Engine.h"
#include "Surroundings.h"
#include "SymbolPicture.h"

#include <QGuiApplication>
#include <QPainter>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

static bool isOwnRenderer;
static qreal scale;

/// What is drawn in and around `rect`, turned so that its side (0 left, 1 top, 2 right, 3 bottom) is at the left.
class SideView
{
public:
    SideView(const QImage &image, QRect rect, int side)
        : m_image(image.copy(rect.adjusted(-around, -around, around, around))
                      .transformed(QTransform().rotate(-90 * side)))
    {
    }

    int length() const { return m_image.height() - 2 * around; }
    /// `depth` pixels inwards from the side, `along` from one end of it.
    QColor at(int depth, int along) const { return m_image.pixelColor(around + depth, around + along); }

private:
    static constexpr int around = 50;
    QImage m_image;
};

/// A window of its own scene, on white.
class Scene
{
public:
    explicit Scene(const QByteArray &items)
    {
        QQmlComponent component(m_engine.get());
        component.setData("import QtQuick\nimport Tarnvale\nWindow { width: 400; height: 300; color: \"white\";"
                              + items + "}",
                          {});
        m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
        if (!m_window)
            qFatal("%s", qPrintable(component.errorString()));
        m_window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        EXPECT_EQ(m_window->effectiveDevicePixelRatio(), scale);
        EXPECT_EQ(m_window->rendererInterface()->graphicsApi() != QSGRendererInterface::Software, isOwnRenderer);
    }

    QImage picture()
    {
        auto image = m_window->grabWindow();
        image.setDevicePixelRatio(1);
        return image;
    }

    template <typename Value> void set(const char *name, const char *property, Value value)
    {
        m_window->findChild<QQuickItem *>(name)->setProperty(property, value);
    }

private:
    std::unique_ptr<QQmlEngine> m_engine = makeEngine();
    std::unique_ptr<QQuickWindow> m_window;
};

static int pixels(qreal units)
{
    return static_cast<int>(std::floor(units * scale + 0.5));
}

/// Where an item of this geometry is drawn.
static QRect drawnAt(qreal x, qreal y, qreal width, qreal height)
{
    return {pixels(x), pixels(y), pixels(width), pixels(height)};
}

TEST(Drawing, aCardHasItsLineOnAllSidesAndItsColourEverywhereBetween)
{
    Scene scene("ContinuousRectangle { objectName: \"card\"; x: 23; y: 17; width: 301; height: 203; radius: 16;"
                " color: \"#0000ff\"; borderColor: \"#ff0000\"; borderWidth: 1 }");
    // At rest, and as it comes by when it is scrolled.
    for (const auto y : {17.0, 18.0, 19.3}) {
        scene.set("card", "y", y);
        const auto picture = scene.picture();
        const auto card = drawnAt(23, y, 301, 203);
        const auto line = pixels(1), bend = pixels(16 * 1.6);
        for (int side = 0; side < 4; ++side) {
            const SideView view(picture, card, side);
            for (int along = bend; along < view.length() - bend; ++along) {
                const auto where = [&] {
                    return testing::Message() << "side " << side << ", pixel " << along << ", y " << y;
                };
                ASSERT_EQ(view.at(-1, along), QColor(Qt::white)) << where();
                for (int depth = 0; depth < line; ++depth)
                    ASSERT_EQ(view.at(depth, along), QColor(Qt::red)) << where();
                for (int depth = line; depth < bend + 3; ++depth)
                    ASSERT_EQ(view.at(depth, along), QColor(Qt::blue)) << where() << ", depth " << depth;
            }
        }
        const auto middle = card.adjusted(bend, bend, -bend, -bend);
        for (int row = middle.top(); row <= middle.bottom(); ++row) {
            for (int column = middle.left(); column <= middle.right(); ++column)
                ASSERT_EQ(picture.pixelColor(column, row), QColor(Qt::blue)) << column << ", " << row;
        }
    }
}

TEST(Drawing, aDividerThatMovesIsAsThickEverywhereAndLeavesNothingBehind)
{
    Scene scene("Divider { objectName: \"divider\"; x: 23; y: 11; width: 301; color: \"#ff0000\" }");
    for (int step = 0; step < 60; ++step) {
        const auto y = 17 + step * 1.3717;
        scene.set("divider", "y", y);
        const auto picture = scene.picture();
        const auto line = drawnAt(23, y, 301, 1);
        for (int row = 0; row < picture.height(); ++row)
            ASSERT_EQ(picture.pixelColor(100, row),
                      QColor(row >= line.top() && row <= line.bottom() ? Qt::red : Qt::white))
                << "row " << row << ", y " << y;
    }
}

TEST(Drawing, aShadowFadesEvenlyOnAllSidesAndAtItsCorners)
{
    // One that stretches, and one that is too small for it.
    for (const auto &[side, blur] : {std::pair(180, 16), std::pair(32, 8)}) {
        Scene scene(
            QStringLiteral(
                "Item { x: 101; y: 61; width: %1; height: %1; SoftShadow { radius: 10; blur: %2; offsetY: 0 } }")
                .arg(side)
                .arg(blur)
                .toUtf8());
        const auto picture = scene.picture();
        const auto item = drawnAt(101, 61, side, side);
        const auto reach = pixels(1.5 * blur) - 1;
        const SideView first(picture, item, 0);
        const auto middle = first.length() / 2;
        EXPECT_NEAR(first.at(0, middle).red(), 128, side == 32 ? 30 : 12) << "half of it is left at the edge";
        for (int each = 0; each < 4; ++each) {
            const SideView view(picture, item, each);
            for (int depth = -reach; depth < 0; ++depth) {
                const auto where = [&] { return testing::Message() << "side " << each << ", depth " << depth; };
                const auto there = view.at(depth, middle).red();
                ASSERT_NEAR(there, first.at(depth, middle).red(), 4) << where() << ": as on the other sides";
                ASSERT_LE(there, view.at(depth - 1, middle).red()) << where() << ": darker than further out";
                auto last = 255;
                for (int along = -reach; along <= middle; ++along) {
                    const auto here = view.at(depth, along).red();
                    ASSERT_LE(here, last) << where() << ", along " << along << ": lighter towards the corner";
                    ASSERT_GE(here, last - 24) << where() << ", along " << along << ": without a step";
                    last = here;
                }
            }
        }
    }
}

TEST(Drawing, aSymbolIsShownPixelByPixelAndStaysInItsPlaceWhenItsColourChanges)
{
    Scene scene("Symbol { objectName: \"symbol\"; x: 15; y: 21; name: \"trash\"; size: 20; color: \"#0000c0\" }");
    scene.picture();
    scene.set("symbol", "color", QColor("#c00000"));
    const auto place = drawnAt(15, 21, 26, 26);
    QImage expected(place.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter(&expected).drawImage(0, 0,
                                  SymbolPicture::drawn("trash", place.width(), QFont::Normal, QColor("#c00000")));
    const auto picture = scene.picture();
    auto differing = 0;
    for (int y = 0; y < place.height(); ++y) {
        for (int x = 0; x < place.width(); ++x) {
            const auto is = picture.pixelColor(place.left() + x, place.top() + y),
                       should = expected.pixelColor(x, y);
            differing += std::abs(is.red() - should.red()) > 3 || std::abs(is.green() - should.green()) > 3;
        }
    }
    EXPECT_EQ(differing, 0);
}

int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (argc != 3)
        qFatal("usage: drawing_test own|software SCALE");
    isOwnRenderer = qstrcmp(argv[1], "own") == 0;
    scale = QByteArray(argv[2]).toDouble();
    setSurroundings();
    qputenv("QT_SCALE_FACTOR", argv[2]);
    if (isOwnRenderer) {
        qputenv("QT_QPA_PLATFORM", "xcb");
        qunsetenv("QT_QUICK_BACKEND");
    }
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
