// SPDX-License-Identifier: MIT
#include "base/run_loop.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

Registration ManualRunLoop::scheduleTimer(double seconds, std::function<void()> handler)
{
    auto registered = std::make_shared<const std::function<void()>>(std::move(handler));
    m_timers.emplace(m_now + seconds, registered);
    return Registration(std::move(registered));
}

std::size_t ManualRunLoop::pendingTimers() const
{
    return static_cast<std::size_t>(
        std::count_if(m_timers.begin(), m_timers.end(), [](const auto& timer) { return !timer.second.expired(); }));
}

void ManualRunLoop::advance(double seconds)
{
    const double end = m_now + seconds;
    while (!m_timers.empty() && m_timers.begin()->first <= end) {
        const auto timer = m_timers.extract(m_timers.begin());
        m_now = timer.key();
        if (const auto handler = timer.mapped().lock())
            (*handler)();
    }
    m_now = end;
}

} // namespace wallgrid
