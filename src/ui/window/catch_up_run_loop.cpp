// SPDX-License-Identifier: MIT
#include "ui/window/catch_up_run_loop.h"

#include "app/gx_app_delegate.h"

#include <utility>

namespace wallgrid {

CatchUpRunLoop::CatchUpRunLoop(RunLoop& inner)
    : m_inner(inner)
{
}

Registration CatchUpRunLoop::scheduleTimer(double seconds, std::function<void()> handler)
{
    return m_inner.scheduleTimer(seconds, [this, handler = std::move(handler)] {
        handler();
        if (m_delegate && m_delegate->shouldUpdate() && m_delegate->hasSkippedUpdate())
            m_delegate->update();
    });
}

} // namespace wallgrid
