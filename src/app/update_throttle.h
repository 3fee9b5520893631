// SPDX-License-Identifier: MIT
#pragma once

#include "base/registration.h"
#include "base/run_loop.h"

#include <queue>

namespace wallgrid {

/// Lets one update pass draw in 0.1 seconds. A pass in between is skipped and not made up for.
class UpdateThrottle {
public:
    explicit UpdateThrottle(RunLoop& runLoop)
        : m_runLoop(runLoop)
    {
    }
    UpdateThrottle(const UpdateThrottle&) = delete;
    UpdateThrottle& operator=(const UpdateThrottle&) = delete;

    /// Whether a pass may draw now; the next ones may not until the throttle is opened again.
    bool pass();
    /// Opens after 0.1 seconds. Every call sets a timer of its own.
    void openLater();

    bool isOpen() const { return m_isOpen; }
    void setOpen(bool open) { m_isOpen = open; }
    /// Since the last pass that drew.
    bool hasSkipped() const { return m_hasSkipped; }

private:
    RunLoop& m_runLoop;
    bool m_isOpen = false;
    bool m_hasSkipped = false;
    std::queue<Registration> m_timers; ///< all wait equally long, so that the first one fires first
};

} // namespace wallgrid
