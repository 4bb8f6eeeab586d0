#include "LatestReading.h"

#include <atomic>
#include <gmock/gmock.h>
#include <semaphore>

namespace {

using namespace std::chrono_literals;
using testing::Optional;

TEST(LatestReading, everyAnswerIsFreshWhileTheSourceIsQuick)
{
    // Each asking brings a reading that ended later; the first may be the one that began with the object.
    const auto count = std::make_shared<std::atomic<int>>(0);
    const LatestReading<int> readings([count] { return ++*count; }, 10s);
    const auto first = *readings.take();
    EXPECT_GT(*readings.take(), first);
}

TEST(LatestReading, aSourceThatHangsHoldsUpNeitherTheCallerNorTheEnd)
{
    constexpr int most = 10;
    const auto allowed = std::make_shared<std::counting_semaphore<most>>(0);
    {
        const LatestReading<int> readings(
            [allowed] {
                allowed->acquire();
                return 7;
            },
            20ms);
        EXPECT_EQ(readings.take(), std::nullopt);
        EXPECT_FALSE(readings.first().isFinished());
        allowed->release();
        readings.first().waitForFinished();
        for (int i = 0; i < 3; ++i)
            EXPECT_THAT(readings.take(), Optional(7)) << "the reading before is better than none";
    }
    allowed->release(most);
}

} // namespace
