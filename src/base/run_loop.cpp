// SPDX-License-Identifier: MIT
#include "base/run_loop.h"

#include <utility>

namespace wallgrid {

void ManualRunLoop::scheduleTimer(double seconds, std::function<void()> handler)
{
    m_timers.emplace(m_now + seconds, std::move(handler));
}

void ManualRunLoop::advance(double seconds)
{
    const double end = m_now + seconds;
    while (!m_timers.empty() && m_timers.begin()->first <= end) {
        auto timer = m_timers.extract(m_timers.begin());
        m_now = timer.key();
        timer.mapped()();
    }
    m_now = end;
}

} // namespace wallgrid
