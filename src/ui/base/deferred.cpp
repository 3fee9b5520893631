// SPDX-License-Identifier: MIT
#include "ui/base/deferred.h"

#include <utility>

namespace wallgrid {

Deferred::Deferred(std::function<void()> work)
    : m_work(std::move(work))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    m_timer.callOnTimeout([this] { m_work(); });
}

void Deferred::finish()
{
    if (!isPending())
        return;
    m_timer.stop();
    m_work();
}

} // namespace wallgrid
