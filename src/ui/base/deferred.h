// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>

namespace wallgrid {

/// Work that any number of notifications may ask for and that is done once, when control is back in the event loop:
/// loading a project announces every item on its own.
class Deferred {
public:
    explicit Deferred(std::function<void()> work);

    void schedule()
    {
        if (!isPending())
            m_timer.start();
    }
    bool isPending() const { return m_timer.isActive(); }
    /// Does pending work at once, before something that must not meet the old state.
    void finish();

private:
    QTimer m_timer;
    std::function<void()> m_work;
};

} // namespace wallgrid
