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
/// The first reading begins with the object, each other one because it was asked for. A read that hangs in the kernel
/// holds up its thread alone: the object does not wait for it when it is destroyed, nor does the program when it ends.
template <typename Reading> class LatestReading
{
public:
    LatestReading(std::function<Reading()> read, std::chrono::milliseconds patience)
        : m_patience(patience), m_state(std::make_shared<State>())
    {
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

    /// A reading that begins after this call or, where that does not end in time, the last that did; absent when
    /// none ever did. The first may have begun before. Any thread.
    std::optional<Reading> take() const
    {
        std::unique_lock lock(m_state->mutex);
        const auto wanted = m_state->latest ? m_state->begun + 1 : 1;
        m_state->isWanted = m_state->isWanted || m_state->begun < wanted;
        m_state->asked.notify_one();
        const auto isThere = [&] { return m_state->ended >= wanted; };
        if (m_state->answered.wait_for(lock, m_patience, isThere)) {
            m_state->late.reset();
        } else {
            if (!m_state->late || m_state->late->future().isFinished())
                m_state->late.emplace().start();
            m_state->lateReading = wanted;
        }
        return m_state->latest;
    }

    /// Finished when the reading that the last `take` gave up waiting for has ended: it is the latest then. Absent when
    /// that was in time. Any thread.
    std::optional<QFuture<void>> late() const
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->late ? std::optional(m_state->late->future()) : std::nullopt;
    }

private:
    struct State
    {
        std::mutex mutex;
        std::condition_variable asked;
        std::condition_variable answered;
        std::optional<Reading> latest;
        /// How many readings have.
        unsigned begun = 0;
        unsigned ended = 0;
        std::optional<QPromise<void>> late;
        /// Finishes `late` when that many have ended.
        unsigned lateReading = 0;
        bool isWanted = true;
        bool isAbandoned = false;
    };

    static void readWhenAsked(const std::shared_ptr<State> &state, const std::function<Reading()> &read)
    {
        std::unique_lock lock(state->mutex);
        while (!state->isAbandoned) {
            state->asked.wait(lock, [&] { return state->isWanted || state->isAbandoned; });
            if (state->isAbandoned)
                return;
            state->isWanted = false;
            ++state->begun;
            lock.unlock();
            auto reading = read();
            lock.lock();
            state->latest = std::move(reading);
            ++state->ended;
            state->answered.notify_all();
            if (state->late && state->ended >= state->lateReading)
                state->late->finish();
        }
    }

    std::chrono::milliseconds m_patience;
    std::shared_ptr<State> m_state;
};
