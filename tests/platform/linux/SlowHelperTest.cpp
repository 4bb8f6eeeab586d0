#include "LinuxHelperService.h"
#include "TestBus.h"

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace {

// A program of its own, so that it runs beside the others: it takes longer than the 25 seconds after which the bus
// library gives up by itself.
TEST(SlowHelper, isWaitedForWhileTheMainThreadLives)
{
    TestBus bus;
    bus.addService("com.example.Tarnvale.Helper", TEST_HELPER_PATH " slow");
    LinuxHelperService service(bus.address());

    qint64 longestPause = 0;
    int beats = 0;
    QElapsedTimer sinceBeat;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] {
        longestPause = std::max(longestPause, sinceBeat.restart());
        ++beats;
    });
    QElapsedTimer clock;
    clock.start();
    sinceBeat.start();
    heart.start(20);

    const auto future = service.moveItemsToTrash({"/a", "/b"}, "org.ala");
    const auto answer = waitFor(future);
    EXPECT_EQ(answer.connectionError, std::nullopt);
    EXPECT_EQ(answer.messages.size(), 2);
    EXPECT_GE(clock.elapsed(), 26'000);
    // A stall of the wait would show as seconds; a busy machine that runs the tests does not.
    EXPECT_LT(longestPause, 2'000);
    EXPECT_GT(beats, 100);
}

} // namespace
