#pragma once

#include <QTimer>

#include <chrono>

/// Beats on the main thread every millisecond and keeps the longest pause between two beats: how long the window
/// would have been deaf.
class Heartbeat
{
public:
    Heartbeat();

    /// Milliseconds since the last call.
    double takeLongestStall();

private:
    using Clock = std::chrono::steady_clock;

    void beat();

    QTimer m_timer;
    Clock::time_point m_last = Clock::now();
    Clock::duration m_longest = {};
};
