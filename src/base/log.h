// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string_view>

namespace wallgrid {

/// Where the program says what nobody asked it to examine: failed writes, unreadable files.
class Log {
public:
    virtual ~Log() = default;
    /// One line, without a line end.
    virtual void log(std::string_view line) = 0;
};

/// Lines on a stream, behind the program's name.
class StreamLog final : public Log {
public:
    explicit StreamLog(std::ostream& stream)
        : m_stream(stream)
    {
    }
    void log(std::string_view line) override { m_stream << "wallgrid: " << line << '\n'; }

private:
    std::ostream& m_stream;
};

} // namespace wallgrid
