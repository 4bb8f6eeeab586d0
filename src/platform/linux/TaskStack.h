#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

/// Tasks that several threads take from one stack, the latest first.
///
/// As many threads work as there are cores for them, and one more whenever a task was found waiting for a disk or a
/// server: who waits needs no core, and a disk answers many questions at once sooner than one after another. They
/// become fewer again when tasks wait no longer, for then they would only be in each other's way. A task that never
/// comes back holds up its own thread alone. Threads are made when there is something for them to do; they have the
/// processor and disk priority of the thread that works the stack off.
class TaskStack
{
public:
    using Task = std::function<void()>;

    /// How many threads work: so many for cores, and so many when they wait.
    struct Threads
    {
        size_t atFirst;
        size_t atMost;
    };

    /// What suits the calling thread: one that has been lowered stays out of the way with what it calls for, too.
    static Threads threadsOfThisPriority();

    /// No task is begun once `stop` is requested.
    TaskStack(Threads threads, std::stop_token stop);

    /// Puts tasks on the stack so that the first of them is taken next. For whoever begins, and for tasks.
    void push(std::vector<Task> tasks);

    /// Works until nothing is left to do. The calling thread is one of those that work.
    void run();

private:
    void work();
    bool isDone() const;
    void waitForTask(std::unique_lock<std::mutex> &lock);
    void callForHelp();
    void allowOneMore();
    void learnFrom(bool hasWaited);

    const size_t m_mostThreads;
    const std::stop_token m_stop;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Task> m_tasks;
    std::vector<std::jthread> m_helpers;
    bool m_isRunning = false;
    /// How many threads may work at once, and how many even when no task waits: more than at first when some hang.
    size_t m_allowed;
    size_t m_leastAllowed;
    size_t m_tasksWithoutWaiting = 0;
    size_t m_working = 0;
    size_t m_idle = 0;
    size_t m_finishedTasks = 0;
};
