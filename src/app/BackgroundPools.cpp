#include "BackgroundPools.h"

void BackgroundPools::waitForBackground()
{
    m_userInitiated.waitForDone();
    m_utility.waitForDone();
}

QThreadPool &BackgroundPools::pool(TaskPriority priority)
{
    return priority == TaskPriority::utility ? m_utility : m_userInitiated;
}

void BackgroundPools::applyOnce(const BackgroundPriority &system, TaskPriority priority)
{
    // A thread belongs to one pool as long as it lives.
    thread_local bool isApplied = false;
    if (!std::exchange(isApplied, true))
        system.apply(priority);
}
