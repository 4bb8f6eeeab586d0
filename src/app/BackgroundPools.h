#pragma once

#include "BackgroundPriority.h"

#include <QDeadlineTimer>
#include <QThreadPool>
#include <QtConcurrent>

#include <functional>
#include <type_traits>
#include <utility>

/// The threads on which scanners work: one pool a priority, because a thread that has lowered itself stays low.
/// Lives on the main thread; waits for its work when it is destroyed.
class BackgroundPools
{
public:
    explicit BackgroundPools(const BackgroundPriority &priority) : m_backgroundPriority(priority) { }

    /// Calls `function(arguments...)` on another thread, with copies of the arguments. What it is given by pointer
    /// or reference has to outlive the pools.
    ///
    /// Await the future, never block on it: Qt would run work that has not begun on the thread that waits, and
    /// lower that thread. Name the future on a line of its own and await it on the next: the compiler that we
    /// support destroys the temporaries of an awaiting expression twice.
    template <typename Function, typename... Arguments>
    auto runInBackground(TaskPriority priority, Function function, Arguments &&...arguments)
    {
        static_assert(std::is_trivially_destructible_v<Function>,
                      "hand over what the function needs as arguments, not as captures");
        const auto work = [&system = m_backgroundPriority, priority,
                           function](const std::decay_t<Arguments> &...copies) {
            applyOnce(system, priority);
            return std::invoke(function, copies...);
        };
        return QtConcurrent::run(&pool(priority), work, std::forward<Arguments>(arguments)...);
    }

    /// Blocks until nothing runs any more, or until the deadline: false then. Used when the program quits, after
    /// its stop token is set.
    bool waitForBackground(QDeadlineTimer deadline);

private:
    QThreadPool &pool(TaskPriority priority);
    static void applyOnce(const BackgroundPriority &system, TaskPriority priority);

    const BackgroundPriority &m_backgroundPriority;
    QThreadPool m_userInitiated;
    QThreadPool m_utility;
};
