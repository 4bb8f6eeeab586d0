#pragma once

#include <QFuture>
#include <QPromise>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

/// Readings from something that may be slow or hang, for a caller that may not: they are taken on a thread of
/// their own, and the caller waits for a fresh one no longer than it has patience for, and else gets the one
/// before.
///
/// The first reading begins with the object. A source that has once been too slow is read again every few seconds,
/// so that the one before is never old. A read that hangs in the kernel holds up its thread alone: the object does
/// not wait for it when it is destroyed, nor does the program when it ends.
template <typename Reading> class LatestReading
{
public:
    LatestReading(std::function<Reading()> read, std::chrono::milliseconds patience)
        : m_patience(patience), m_state(std::make_shared<State>())
    {
        m_state->first.start();
        std::thread(&LatestReading::readWhenAsked, m_state, std::move(read)).detach();
    }

    ~LatestReading()
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->isAbandoned = true;
        m_state->asked.notify_one();
    }

    LatestReading(const LatestReading &) = delete;
    LatestReading &operator=(const LatestReading &) = delete;

    /// Finished when `take` has an answer from then on.
    QFuture<void> first() const { return m_state->first.future(); }

    /// A reading that ends after this call began or, when there is none in time, the last that did; absent when
    /// none ever did. Any thread.
    std::optional<Reading> take() const
    {
        std::unique_lock lock(m_state->mutex);
        const auto count = m_state->readCount;
        m_state->isWanted = true;
        m_state->asked.notify_one();
        const auto isInTime =
            m_state->answered.wait_for(lock, m_patience, [&] { return m_state->readCount != count; });
        if (!isInTime)
            m_state->isSlow = true;
        return m_state->latest;
    }

private:
    struct State
    {
        std::mutex mutex;
        std::condition_variable asked;
        std::condition_variable answered;
        std::optional<Reading> latest;
        QPromise<void> first;
        unsigned readCount = 0;
        bool isWanted = true;
        bool isSlow = false;
        bool isAbandoned = false;
    };

    static void readWhenAsked(const std::shared_ptr<State> &state, const std::function<Reading()> &read)
    {
        constexpr std::chrono::seconds longestAge{5};
        std::unique_lock lock(state->mutex);
        while (!state->isAbandoned) {
            const auto isDue = [&] { return state->isWanted || state->isAbandoned; };
            if (state->isSlow)
                state->asked.wait_for(lock, longestAge, isDue);
            else
                state->asked.wait(lock, isDue);
            if (state->isAbandoned)
                return;
            state->isWanted = false;
            lock.unlock();
            auto reading = read();
            lock.lock();
            state->latest = std::move(reading);
            ++state->readCount;
            state->answered.notify_all();
            if (state->readCount == 1)
                state->first.finish();
        }
    }

    std::chrono::milliseconds m_patience;
    std::shared_ptr<State> m_state;
};
