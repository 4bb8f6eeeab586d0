#include "LatestReading.h"

#include <atomic>
#include <gmock/gmock.h>
#include <semaphore>

using namespace std::chrono_literals;
using testing::Optional;

TEST(LatestReading, everyAnswerIsFreshWhileTheSourceIsQuick)
{
    // Each asking brings a reading that ended later; the first may be the one that began with the object.
    const auto count = std::make_shared<std::atomic<int>>(0);
    const LatestReading<int> readings([count] { return ++*count; }, 10s);
    const auto first = *readings.take();
    EXPECT_GT(*readings.take(), first);
    EXPECT_FALSE(readings.late());
}

TEST(LatestReading, aSlowSourceHoldsUpNeitherTheCallerNorTheEndAndIsHeardLater)
{
    constexpr int most = 10;
    const auto allowed = std::make_shared<std::counting_semaphore<most>>(0);
    const auto state = std::make_shared<std::atomic<int>>(1);
    {
        const LatestReading<int> readings(
            [allowed, state] {
                const int seen = *state;
                allowed->acquire();
                return seen;
            },
            20ms);
        EXPECT_EQ(readings.take(), std::nullopt);
        const auto first = readings.late();
        ASSERT_TRUE(first && !first->isFinished());
        allowed->release();
        QFuture(*first).waitForFinished();

        EXPECT_THAT(readings.take(), Optional(1)) << "the reading before is better than none";
        *state = 2;
        EXPECT_THAT(readings.take(), Optional(1)) << "the one in progress began before";
        const auto second = readings.late();
        allowed->release(2);
        QFuture(*second).waitForFinished();
        EXPECT_FALSE(allowed->try_acquire()) << "it was not waited for until another had begun";
        EXPECT_THAT(readings.take(), Optional(2));
        EXPECT_TRUE(second->isFinished());
        EXPECT_FALSE(readings.late()->isFinished());
    }
    allowed->release(most);
}
