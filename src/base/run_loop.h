// SPDX-License-Identifier: MIT
#pragma once

#include "base/registration.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>

namespace wallgrid {

/// Where one-shot timers come from: the only clock of the program.
class RunLoop {
public:
    virtual ~RunLoop() = default;
    /// Calls the handler once, on the main thread, when so many seconds have passed and control is back in the loop,
    /// unless the registration has gone by then.
    virtual Registration scheduleTimer(double seconds, std::function<void()> handler) = 0;
};

/// A run loop whose clock is turned by hand, for tests and for runs without an event loop.
class ManualRunLoop : public RunLoop {
public:
    Registration scheduleTimer(double seconds, std::function<void()> handler) override;

    /// Turns the clock forward and fires what falls due, in order of time, timers of the same time in order of their
    /// scheduling.
    void advance(double seconds);
    std::size_t pendingTimers() const;

private:
    double m_now = 0;
    std::multimap<double, std::weak_ptr<const std::function<void()>>> m_timers;
};

} // namespace wallgrid
