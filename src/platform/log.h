// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace wallgrid {

/// Where the program says what nobody asked it to examine: failed writes, unreadable files.
class Log {
public:
    virtual ~Log() = default;
    /// One line, without a line end.
    virtual void log(std::string_view line) = 0;
};

} // namespace wallgrid
