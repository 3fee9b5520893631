// SPDX-License-Identifier: MIT
#pragma once

#include "base/run_loop.h"

#include <memory>

namespace wallgrid {

class GXAppDelegate;

/// Keeps what the user sees from staying behind the document. A call of the update pass soon after another draws
/// nothing; this run loop stands between the controller and the real one, and when a timer has let the pass draw again
/// and a call has been skipped meanwhile, it sends the pass once more.
class CatchUpRunLoop final : public RunLoop {
public:
    /// The inner loop must outlive this one; timers that fire after the end of this one only run their own handler.
    explicit CatchUpRunLoop(RunLoop& inner);

    /// Whom to watch; null for nobody. It must live until another is set or this loop ends.
    void watch(GXAppDelegate* delegate) { *m_delegate = delegate; }

    void scheduleTimer(double seconds, std::function<void()> handler) override;

private:
    RunLoop& m_inner;
    std::shared_ptr<GXAppDelegate*> m_delegate;
};

} // namespace wallgrid
