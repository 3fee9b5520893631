// SPDX-License-Identifier: MIT
#pragma once

#include "base/log.h"

#include <QObject>

namespace wallgrid {

/// Says each line on standard error and to whoever shows it in a window.
class WindowLog final : public QObject, public Log {
    Q_OBJECT

public:
    void log(std::string_view line) override;

signals:
    void logged(const QString& line);
};

} // namespace wallgrid
