#pragma once

#include "FileSystem.h"

#include <QList>

#include <algorithm>
#include <atomic>
#include <limits>
#include <mutex>
#include <utility>
#include <vector>

/// What the threads of a walk find, in the order in which one thread would have found it, and as much of it as one
/// thread would have taken: the first `limit` results. Safe to use from several threads.
template <typename Result> class OrderedResults
{
public:
    explicit OrderedResults(qint64 limit = std::numeric_limits<qint32>::max()) : m_limit(limit) { }

    void add(WalkPlace place, Result result)
    {
        const std::lock_guard lock(m_mutex);
        m_found.push_back({std::move(place), std::move(result)});
        // Twice as many at most, so that what is cut off costs little for each.
        if (std::ssize(m_found) >= 2 * m_limit)
            cut();
    }

    /// Whether nothing from `place` on is wanted any more.
    bool isBehindTheLast(const auto &place)
    {
        // Asked for every folder: without a lock as long as all is wanted, which is nearly always.
        if (!m_isCut.load(std::memory_order_relaxed))
            return false;
        const std::lock_guard lock(m_mutex);
        return m_last < place();
    }

    QList<Result> take()
    {
        const std::lock_guard lock(m_mutex);
        cut();
        std::ranges::sort(m_found, {}, &Found::place);
        QList<Result> results;
        results.reserve(std::ssize(m_found));
        for (auto &found : m_found)
            results.push_back(std::move(found.result));
        m_found.clear();
        return results;
    }

private:
    struct Found
    {
        WalkPlace place;
        Result result;
    };

    void cut()
    {
        if (std::ssize(m_found) <= m_limit)
            return;
        const auto last = m_found.begin() + m_limit - 1;
        std::ranges::nth_element(m_found, last, {}, &Found::place);
        m_last = last->place;
        m_found.erase(last + 1, m_found.end());
        m_isCut = true;
    }

    const qint64 m_limit;
    std::mutex m_mutex;
    std::vector<Found> m_found;
    std::atomic<bool> m_isCut = false;
    /// The place of the last result that is wanted, once there are enough.
    WalkPlace m_last;
};
