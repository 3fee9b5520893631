// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace wallgrid {

/// Zeroed bytes for a large buffer that may stay partly untouched: only the pages that are written take memory.
class ZeroedPages {
public:
    ZeroedPages() = default;
    /// Throws std::bad_alloc when there is no address space.
    explicit ZeroedPages(std::size_t size);
    ZeroedPages(ZeroedPages&& other) noexcept;
    ZeroedPages& operator=(ZeroedPages&& other) noexcept;
    ~ZeroedPages();

    std::uint8_t* data() const { return reinterpret_cast<std::uint8_t*>(m_data); }

private:
    std::byte* m_data = nullptr;
    std::size_t m_size = 0;
};

} // namespace wallgrid
