// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/byte_sink.h"
#include "base/error.h"

#include <cstdint>
#include <span>

namespace wallgrid {

/// A file while it is made: held as a whole, or handed to a sink piece by piece. Its head is held in any case: lengths
/// that are known last stand there.
class GrowingFile {
public:
    GrowingFile() = default;
    explicit GrowingFile(ByteSink& sink)
        : m_sink(&sink)
    {
    }

    /// Whether the file is held as a whole.
    bool isHeld() const { return !m_sink; }
    /// The end of the file, for fields. Rows are given to appendRepeated().
    ByteBuffer& end() { return m_end; }
    std::uint64_t size() const { return m_handedOver + m_end.size(); }
    /// Adds some bytes so many times.
    void appendRepeated(std::span<const std::uint8_t> bytes, std::size_t times);

    /// What is there now is the head.
    void endHead();
    /// The file from its first byte on, up to the end of its head.
    ByteBuffer& head() { return m_sink ? m_head : m_end; }
    /// Nothing is appended any more, and the head does not change.
    void finish();

    /// Or what the sink failed with. It is given nothing after that.
    const Expected<void>& written() const { return m_written; }

private:
    void handOver();

    ByteSink* m_sink = nullptr;
    ByteBuffer m_head;
    ByteBuffer m_end; ///< what the sink has not got
    std::uint64_t m_handedOver = 0;
    Expected<void> m_written;
};

} // namespace wallgrid
