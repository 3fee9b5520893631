// SPDX-License-Identifier: MIT
#include "qt/qt_run_loop.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

QtRunLoop::QtRunLoop()
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.callOnTimeout([this] { fire(); });
}

Registration QtRunLoop::scheduleTimer(double seconds, std::function<void()> handler)
{
    const auto delay = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    auto registered = std::make_shared<const std::function<void()>>(std::move(handler));
    const auto timer = m_timers.emplace(Clock::now() + delay, registered);
    if (timer == m_timers.begin())
        arm();
    return Registration(std::move(registered));
}

void QtRunLoop::arm()
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_timers.begin()->first - Clock::now());
    m_timer.start(std::max(left, std::chrono::milliseconds{0}));
}

void QtRunLoop::fire()
{
    // A handler may schedule timers; those wait for the next turn.
    const auto now = Clock::now();
    while (!m_timers.empty() && m_timers.begin()->first <= now) {
        const auto timer = m_timers.extract(m_timers.begin());
        if (const auto handler = timer.mapped().lock())
            (*handler)();
    }
    if (!m_timers.empty())
        arm();
}

} // namespace wallgrid
