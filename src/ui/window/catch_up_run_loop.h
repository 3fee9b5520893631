// SPDX-License-Identifier: MIT
#pragma once

#include "base/run_loop.h"

namespace wallgrid {

class GXAppDelegate;

/// Keeps what the user sees from staying behind the document. A call of the update pass soon after another draws
/// nothing. This run loop stands between the controller and the real one. When a timer lets the pass draw again after a
/// skipped call, it sends the pass once more.
class CatchUpRunLoop final : public RunLoop {
public:
    explicit CatchUpRunLoop(RunLoop& inner);

    /// The timers are the controller's own and so end with it.
    void watch(GXAppDelegate& delegate) { m_delegate = &delegate; }

    Registration scheduleTimer(double seconds, std::function<void()> handler) override;

private:
    RunLoop& m_inner;
    GXAppDelegate* m_delegate = nullptr;
};

} // namespace wallgrid
