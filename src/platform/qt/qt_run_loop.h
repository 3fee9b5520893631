// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_loop.h"

namespace wallgrid {

/// Timers on Qt's event loop. Timers that are pending when the application ends are dropped.
class QtRunLoop final : public RunLoop {
public:
    void scheduleTimer(double seconds, std::function<void()> handler) override;
};

} // namespace wallgrid
