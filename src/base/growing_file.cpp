// SPDX-License-Identifier: MIT
#include "base/growing_file.h"

#include <algorithm>
#include <cstring>

namespace wallgrid {

namespace {

/// The sink gets pieces of this size, which stay in the processor's nearer cache until then and of which the system
/// makes few large pages of a file.
constexpr std::size_t kPiece = std::size_t{1} << 20;

/// Writes some bytes again and again. What is written is copied in turn, in larger and larger blocks that still come
/// from the nearest cache.
void repeatBytes(std::span<const std::uint8_t> bytes, std::size_t times, std::uint8_t* out)
{
    constexpr std::size_t kMostAtOnce = std::size_t{16} << 10;
    const std::size_t total = bytes.size() * times;
    std::memcpy(out, bytes.data(), bytes.size());
    std::size_t block = bytes.size(); // as many whole repetitions as are copied at a time
    for (std::size_t done = bytes.size(); done < total;) {
        const std::size_t count = std::min(block, total - done);
        std::memcpy(out + done, out, count);
        done += count;
        if (done <= kMostAtOnce)
            block = done;
    }
}

} // namespace

void GrowingFile::appendRepeated(std::span<const std::uint8_t> bytes, std::size_t times)
{
    if (bytes.empty())
        return;
    const std::size_t most = m_sink ? kPiece / bytes.size() + 1 : times;
    for (std::size_t left = times; left > 0;) {
        const std::size_t count = std::min(left, most);
        repeatBytes(bytes, count, extend(m_end, bytes.size() * count));
        left -= count;
        if (m_sink && m_end.size() >= kPiece)
            handOver();
    }
}

void GrowingFile::endHead()
{
    if (m_sink)
        m_head = m_end;
}

void GrowingFile::finish()
{
    if (!m_sink)
        return;
    handOver();
    if (m_written)
        m_written = m_sink->replace(0, m_head);
}

void GrowingFile::handOver()
{
    if (m_written)
        m_written = m_sink->append(m_end);
    m_handedOver += m_end.size();
    m_end.clear();
}

} // namespace wallgrid
