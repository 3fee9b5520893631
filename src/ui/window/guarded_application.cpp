// SPDX-License-Identifier: MIT
#include "ui/window/guarded_application.h"

#include <QScopedValueRollback>
#include <QThread>
#include <new>

namespace wallgrid {

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    if (QThread::currentThread() != thread())
        return QApplication::notify(receiver, event);
    // An event often sends others; all but those of a loop within, as a dialog runs one, end before it does.
    const int loopLevel = thread()->loopLevel();
    const bool sentByLoop = loopLevel != m_loopLevel;
    bool handled = true;
    {
        const QScopedValueRollback<int> within(m_loopLevel, loopLevel);
        try {
            handled = QApplication::notify(receiver, event);
        } catch (const std::bad_alloc&) {
            m_ranOut = true;
        }
    }
    if (sentByLoop && m_ranOut) {
        const QScopedValueRollback<int> within(m_loopLevel, loopLevel);
        m_ranOut = false;
        try {
            emit ranOutOfMemory();
        } catch (const std::bad_alloc&) {
            m_ranOut = true;
        }
    }
    return handled;
}

} // namespace wallgrid
