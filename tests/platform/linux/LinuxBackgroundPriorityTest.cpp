#include "LinuxBackgroundPriority.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

// Not through QThread: what counts is what the kernel knows of the thread.
TEST(LinuxBackgroundPriority, lowersTheCallingThreadAlone)
{
    const auto niceness = [] { return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid())); };
    const auto diskLevel = [] { return syscall(SYS_ioprio_get, 1, 0) & 7; };
    const int ownNiceness = niceness();
    std::thread([&] {
        LinuxBackgroundPriority().apply(TaskPriority::userInitiated);
        EXPECT_EQ(niceness(), ownNiceness);
        LinuxBackgroundPriority().apply(TaskPriority::utility);
        EXPECT_EQ(niceness(), std::max(10, ownNiceness));
        EXPECT_EQ(diskLevel(), 7);
    }).join();
    EXPECT_EQ(niceness(), ownNiceness);
    EXPECT_NE(diskLevel(), 7);
}
