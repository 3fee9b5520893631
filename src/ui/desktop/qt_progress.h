// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

#include <QCoreApplication>

namespace wallgrid {

/// Shows work that takes more than half a second in a dialog that can cancel it. Until then nothing is shown and no
/// event handled.
class QtProgress final : public Progress {
    Q_DECLARE_TR_FUNCTIONS(QtProgress)

public:
    void run(LongWork kind, const std::function<void(const Report&)>& work) override;

private:
    static QString text(LongWork kind);

    bool m_running = false;
};

} // namespace wallgrid
