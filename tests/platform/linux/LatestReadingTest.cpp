#include "LatestReading.h"

#include <future>
#include <gmock/gmock.h>

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
    struct Device
    {
        std::atomic<bool> hangs = false;
        std::promise<void> release;
        std::shared_future<void> released{release.get_future()};
    };
    const auto device = std::make_shared<Device>();
    {
        const LatestReading<int> readings(
            [device] {
                if (device->hangs)
                    device->released.wait();
                return 7;
            },
            20ms);
        while (!readings.take()) { }
        device->hangs = true;
        for (int i = 0; i < 3; ++i)
            EXPECT_THAT(readings.take(), Optional(7)) << "the reading before is better than none";
    }
    device->release.set_value();
}

TEST(LatestReading, nothingIsKnownBeforeTheFirstReadingEnds)
{
    const auto release = std::make_shared<std::promise<void>>();
    const LatestReading<int> readings(
        [released = release->get_future().share()] {
            released.wait();
            return 7;
        },
        1ms);
    EXPECT_EQ(readings.take(), std::nullopt);
    EXPECT_FALSE(readings.first().isFinished());
    release->set_value();
    readings.first().waitForFinished();
    EXPECT_THAT(readings.take(), Optional(7));
}

} // namespace
