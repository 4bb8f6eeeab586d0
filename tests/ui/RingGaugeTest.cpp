#include "RingGauge.h"

#include <QPainter>
#include <QtMath>

#include <gmock/gmock.h>

namespace {

constexpr auto side = 100;
constexpr auto thickness = 10;

/// Whether the ring is filled at `share` of the way around, clockwise from the top.
class Ring
{
public:
    explicit Ring(double fraction) : m_image(side, side, QImage::Format_ARGB32_Premultiplied)
    {
        RingGauge gauge;
        gauge.setSize({side, side});
        gauge.setProperty("thickness", thickness);
        gauge.setProperty("fraction", fraction);
        gauge.setProperty("topColor", QColor(Qt::red));
        gauge.setProperty("bottomColor", QColor(Qt::red));
        gauge.setProperty("trackColor", QColor(Qt::blue));
        m_image.fill(Qt::transparent);
        QPainter painter(&m_image);
        gauge.paint(&painter);
    }

    QColor at(double share) const
    {
        const auto angle = share * 2 * M_PI;
        const auto radius = (side - thickness) / 2.0;
        return m_image.pixelColor(qFloor(side / 2.0 + radius * qSin(angle)),
                                  qFloor(side / 2.0 - radius * qCos(angle)));
    }

private:
    QImage m_image;
};

TEST(RingGauges, areFilledAsFarAsTheShareGoes)
{
    for (const auto fraction : {0.25, 0.5, 0.8, 0.97}) {
        const Ring ring(fraction);
        for (const auto share : {0.02, 0.1, 0.24, 0.27, 0.48, 0.52, 0.78, 0.82, 0.95, 0.985}) {
            if (std::abs(share - fraction) > 0.012) {
                EXPECT_EQ(ring.at(share), share < fraction ? Qt::red : Qt::blue) << fraction << " at " << share;
            }
        }
    }
}

TEST(RingGauges, emptyAndFullAreWhatTheyAre)
{
    for (const auto fraction : {-1.0, 0.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(Ring(fraction).at(0), Qt::blue) << fraction;
    for (const auto fraction : {1.0, 7.0}) {
        for (const auto share : {0.0, 0.3, 0.999})
            EXPECT_EQ(Ring(fraction).at(share), Qt::red) << fraction;
    }
    EXPECT_EQ(Ring(0.005).at(0.02), Qt::red) << "a little is seen";
    EXPECT_EQ(Ring(0.005).at(0.2), Qt::blue);
}

} // namespace
