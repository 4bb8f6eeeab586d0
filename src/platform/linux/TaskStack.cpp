#include "TaskStack.h"

#include "LinuxBackgroundPriority.h"

#include <QThread>

#include <algorithm>
#include <chrono>
#include <sys/resource.h>
#include <system_error>
#include <utility>

namespace {

// Tried with cold caches on a disk of two cores' computer: 16 threads are as fast as it gets.
constexpr size_t mostThreads = 16;
constexpr size_t mostThreadsThatGiveWay = 8;

// What may be taken for a task that does not come back; also how soon a waiting thread hears that it is to stop.
constexpr std::chrono::milliseconds patience{20};

// A thread that waits for a lock of ours looks as if it waited for a disk, which happens to few tasks; a disk that is
// read for the first time holds up most of them.
constexpr size_t tasksWithoutWaitingPerThreadLess = 8;

/// How often the calling thread has waited so far.
long waits()
{
    rusage usage;
    return getrusage(RUSAGE_THREAD, &usage) == 0 ? usage.ru_nvcsw : 0;
}

} // namespace

TaskStack::Threads TaskStack::threadsOfThisPriority()
{
    const auto cores = static_cast<size_t>(std::max(1, QThread::idealThreadCount()));
    if (LinuxBackgroundPriority::isLowered())
        return {std::clamp(cores / 2, size_t{1}, mostThreadsThatGiveWay), mostThreadsThatGiveWay};
    return {std::min(cores, mostThreads), mostThreads};
}

TaskStack::TaskStack(Threads threads, std::stop_token stop)
    : m_mostThreads(threads.atMost), m_stop(std::move(stop)), m_allowed(threads.atFirst),
      m_leastAllowed(threads.atFirst)
{
}

void TaskStack::push(std::vector<Task> tasks)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.insert(m_tasks.end(), std::move_iterator(tasks.rbegin()), std::move_iterator(tasks.rend()));
    callForHelp();
}

void TaskStack::run()
{
    m_isRunning = true;
    work();
    std::unique_lock lock(m_mutex);
    m_isRunning = false;
    auto helpers = std::move(m_helpers);
    lock.unlock();
    helpers.clear();
}

/// What every thread does.
void TaskStack::work()
{
    std::unique_lock lock(m_mutex);
    while (!isDone()) {
        if (m_tasks.empty() || m_working >= m_allowed) {
            waitForTask(lock);
            continue;
        }
        auto task = std::move(m_tasks.back());
        m_tasks.pop_back();
        ++m_working;
        callForHelp();
        lock.unlock();
        const auto before = waits();
        task();
        const bool hasWaited = waits() != before;
        task = {};
        lock.lock();
        --m_working;
        ++m_finishedTasks;
        learnFrom(hasWaited);
    }
    m_changed.notify_all();
}

bool TaskStack::isDone() const
{
    return m_stop.stop_requested() || (m_tasks.empty() && m_working == 0);
}

void TaskStack::waitForTask(std::unique_lock<std::mutex> &lock)
{
    const auto finished = m_finishedTasks;
    ++m_idle;
    const auto woken = m_changed.wait_for(lock, patience);
    --m_idle;
    // Those that work may be stuck.
    if (woken == std::cv_status::timeout && m_finishedTasks == finished && !m_tasks.empty()) {
        m_leastAllowed = std::min(m_leastAllowed + 1, m_mostThreads);
        allowOneMore();
    }
}

/// As long as tasks are left, one thread looks out for them even when it may not work yet.
void TaskStack::callForHelp()
{
    if (m_tasks.empty() || !m_isRunning)
        return;
    if (m_idle > 0) {
        if (m_working < m_allowed)
            m_changed.notify_one();
    } else if (m_helpers.size() < m_allowed && m_helpers.size() + 1 < m_mostThreads) {
        try {
            m_helpers.emplace_back([this] { work(); });
        } catch (const std::system_error &) {
            // Then those that are there do it all.
        }
    }
}

void TaskStack::allowOneMore()
{
    m_allowed = std::min(m_allowed + 1, m_mostThreads);
    callForHelp();
}

void TaskStack::learnFrom(bool hasWaited)
{
    if (hasWaited)
        allowOneMore();
    else if (++m_tasksWithoutWaiting % tasksWithoutWaitingPerThreadLess == 0)
        m_allowed = std::max(m_allowed - 1, m_leastAllowed);
}
