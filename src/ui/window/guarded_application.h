// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

namespace wallgrid {

/// An application that goes on when the handler of an event runs out of memory, which Qt does not provide for. What the
/// handler had done by then may be half of its work: whoever owns the work puts it right when told.
class GuardedApplication final : public QApplication {
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

signals:
    /// After the event that the loop had sent, when everything that it caused has ended. Comes again with the next
    /// event when the memory does not suffice for putting it right either.
    void ranOutOfMemory();

private:
    int m_loopLevel = -1; ///< of the event that is being handled
    bool m_ranOut = false;
};

} // namespace wallgrid
