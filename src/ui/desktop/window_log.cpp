// SPDX-License-Identifier: MIT
#include "ui/desktop/window_log.h"

#include <iostream>

namespace wallgrid {

void WindowLog::log(std::string_view line)
{
    std::cerr << "wallgrid: " << line << '\n';
    emit logged(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
}

} // namespace wallgrid
