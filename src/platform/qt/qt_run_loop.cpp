// SPDX-License-Identifier: MIT
#include "platform/qt/qt_run_loop.h"

#include <QCoreApplication>
#include <QTimer>
#include <cmath>
#include <utility>

namespace wallgrid {

void QtRunLoop::scheduleTimer(double seconds, std::function<void()> handler)
{
    QTimer::singleShot(static_cast<int>(std::lround(seconds * 1000)), Qt::PreciseTimer, QCoreApplication::instance(),
                       std::move(handler));
}

} // namespace wallgrid
