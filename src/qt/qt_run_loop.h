// SPDX-License-Identifier: MIT
#pragma once

#include "base/run_loop.h"

#include <QTimer>
#include <chrono>
#include <functional>
#include <map>
#include <memory>

namespace wallgrid {

/// Timers on Qt's event loop, dropped when the run loop ends. They share one timer of Qt's: loading a project leaves
/// one for each of its items, and Qt's own cost more the more of them there are.
class QtRunLoop final : public RunLoop {
public:
    QtRunLoop();

    Registration scheduleTimer(double seconds, std::function<void()> handler) override;

private:
    using Clock = std::chrono::steady_clock;

    void arm();
    void fire();

    std::multimap<Clock::time_point, std::weak_ptr<const std::function<void()>>> m_timers;
    QTimer m_timer; // set to the first of them
};

} // namespace wallgrid
