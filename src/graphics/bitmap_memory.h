// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace wallgrid {

/// The bytes of one bitmap. Large blocks come from the kernel in huge pages where it has them; the blocks given back
/// last are kept and handed out again, because faulting in a fresh raster of 512 MB costs several times its filling.
///
/// Refused are: a single block above maximumBlock(), and any block that would take all blocks alive together past
/// maximumTotal(). Kept blocks do not count as alive and are given up first.
class BitmapMemory {
public:
    /// An empty block (data() is null) when the bytes are refused. `cleared` asks for zeroed bytes.
    static BitmapMemory allocate(std::size_t bytes, bool cleared);

    BitmapMemory() = default;
    BitmapMemory(BitmapMemory&& other) noexcept;
    BitmapMemory& operator=(BitmapMemory&& other) noexcept;
    ~BitmapMemory();

    std::byte* data() const { return m_data; }
    explicit operator bool() const { return m_data != nullptr; }

    /// 4 GiB, or 2 GiB where sizes have 32 bits.
    static std::size_t maximumBlock();
    /// A third of the machine's memory, because an export needs about as much again, and at most 6 GiB, which take some
    /// seconds to fill; unless it was set to something else.
    static std::size_t maximumTotal();
    static void setMaximumTotal(std::size_t bytes);
    /// Bytes of all blocks alive now.
    static std::size_t alive();
    /// How many blocks were refused so far. Who shows or saves pictures compares it with what it was before, and says
    /// that some are missing.
    static std::size_t refused();

private:
    BitmapMemory(std::byte* data, std::size_t capacity);

    std::byte* m_data = nullptr;
    std::size_t m_capacity = 0;
};

} // namespace wallgrid
