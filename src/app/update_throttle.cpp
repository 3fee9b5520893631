// SPDX-License-Identifier: MIT
#include "app/update_throttle.h"

#include <utility>

namespace wallgrid {

namespace {

constexpr double kSeconds = 0.1;

} // namespace

bool UpdateThrottle::pass()
{
    const bool open = std::exchange(m_isOpen, false);
    m_hasSkipped = !open;
    return open;
}

void UpdateThrottle::openLater()
{
    m_timers.push(m_runLoop.scheduleTimer(kSeconds, [this] {
        m_timers.pop();
        m_isOpen = true;
    }));
}

} // namespace wallgrid
