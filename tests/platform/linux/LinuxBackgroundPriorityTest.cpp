#include "LinuxBackgroundPriority.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

// Not through QThread: what counts is what the kernel knows of the thread.
TEST(LinuxBackgroundPriority, lowersTheCallingThreadAlone)
{
    const auto niceness = [] { return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid())); };
    // The kernel's class (2 is the ordinary one) above its level.
    const auto diskPriority = [] { return syscall(SYS_ioprio_get, 1, 0); };
    const auto ownDiskPriority = diskPriority();
    const int ownNiceness = niceness();
    std::thread([&] {
        LinuxBackgroundPriority().apply(TaskPriority::userInitiated);
        EXPECT_EQ(niceness(), ownNiceness);
        LinuxBackgroundPriority().apply(TaskPriority::utility);
        EXPECT_EQ(niceness(), std::max(10, ownNiceness));
        EXPECT_EQ(diskPriority(), 2 << 13 | 7);
    }).join();
    EXPECT_EQ(niceness(), ownNiceness);
    EXPECT_EQ(diskPriority(), ownDiskPriority);
}
