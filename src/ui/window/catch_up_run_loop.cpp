// SPDX-License-Identifier: MIT
#include "ui/window/catch_up_run_loop.h"

#include "app/gx_app_delegate.h"

#include <utility>

namespace wallgrid {

CatchUpRunLoop::CatchUpRunLoop(RunLoop& inner)
    : m_inner(inner)
    , m_delegate(std::make_shared<GXAppDelegate*>(nullptr))
{
}

void CatchUpRunLoop::scheduleTimer(double seconds, std::function<void()> handler)
{
    m_inner.scheduleTimer(seconds, [handler = std::move(handler), watched = std::weak_ptr(m_delegate)] {
        handler();
        const auto delegate = watched.lock();
        if (delegate && *delegate && (*delegate)->shouldUpdate() && (*delegate)->hasSkippedUpdate())
            (*delegate)->update();
    });
}

} // namespace wallgrid
