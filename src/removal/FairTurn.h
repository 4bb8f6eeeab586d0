#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <coroutine>

/// Awaited in every round of a loop on the main thread that may be long: lets the window have its turn whenever the
/// loop has had its own, and costs next to nothing in between.
///
/// Refers to the loop's clock instead of holding it: the compiler that we support awaits a copy.
class FairTurn
{
public:
    explicit FairTurn(QElapsedTimer &clock) : m_clock(&clock) { m_clock->start(); }

    bool await_ready() const { return !m_clock->hasExpired(longestTurn); }

    void await_suspend(std::coroutine_handle<> loop) const
    {
        // Not at once: what is posted goes before the window's own timers.
        QTimer::singleShot(1, [clock = m_clock, loop] {
            clock->restart();
            loop.resume();
        });
    }

    void await_resume() const { }

private:
    /// Milliseconds; a third of what a frame lasts.
    static constexpr qint64 longestTurn = 5;

    QElapsedTimer *m_clock;
};
