#include "BackgroundPools.h"

#include "AppFixture.h"

TEST(BackgroundPools, givesEachThreadThePriorityOfItsWork)
{
    const RecordingPriority priority;
    BackgroundPools pools(priority);
    const auto threadOf = [](int) { return QThread::currentThreadId(); };
    QList<QFuture<Qt::HANDLE>> low;
    QList<QFuture<Qt::HANDLE>> high;
    for (int i = 0; i < 20; ++i) {
        low.append(pools.runInBackground(TaskPriority::utility, threadOf, i));
        high.append(pools.runInBackground(TaskPriority::userInitiated, threadOf, i));
    }
    pools.waitForBackground();
    for (const auto &task : low)
        EXPECT_TRUE(
            std::ranges::none_of(high, [&](const auto &other) { return other.result() == task.result(); }));
    EXPECT_GE(priority.timesUtility, 1);
    EXPECT_GE(priority.timesUserInitiated, 1);
    // Once a thread, not once a task.
    EXPECT_LE(priority.timesUtility, QThread::idealThreadCount());
}

TEST(BackgroundPools, waitingEndsAfterTheWork)
{
    const RecordingPriority priority;
    BackgroundPools pools(priority);
    std::atomic<bool> isDone = false;
    const auto work = [](std::atomic<bool> *done) {
        QThread::msleep(20);
        *done = true;
    };
    pools.runInBackground(TaskPriority::utility, work, &isDone);
    pools.waitForBackground();
    EXPECT_TRUE(isDone);
}
