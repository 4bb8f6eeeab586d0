#include "Heartbeat.h"

#include <algorithm>
#include <utility>

Heartbeat::Heartbeat()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
    m_timer.start(1);
}

double Heartbeat::takeLongestStall()
{
    beat();
    return std::chrono::duration<double, std::milli>(std::exchange(m_longest, {})).count();
}

void Heartbeat::beat()
{
    const auto now = Clock::now();
    m_longest = std::max(m_longest, now - m_last);
    m_last = now;
}
