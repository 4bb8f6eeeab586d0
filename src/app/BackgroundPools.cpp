#include "BackgroundPools.h"

bool BackgroundPools::waitForBackground(QDeadlineTimer deadline)
{
    const auto isDone = [&](QThreadPool &pool) {
        return pool.waitForDone(static_cast<int>(deadline.remainingTime()));
    };
    return isDone(m_userInitiated) && isDone(m_utility);
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
