// SPDX-License-Identifier: MIT
#include "graphics/bitmap_memory.h"

#include "base/pages.h"
#include "base/portable.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace wallgrid {

namespace {

constexpr std::size_t kCacheLine = 64;

/// The size of the block that is taken for so many bytes. It alone says whether the block is mapped, so that taking and
/// giving back agree.
std::size_t capacityFor(std::size_t bytes)
{
    const std::size_t lines = (bytes + kCacheLine - 1) / kCacheLine * kCacheLine;
    return lines >= kLargeBlock ? wholePages(lines) : lines;
}

/// The large blocks given back last, most recent first. Without a destructor, so that a bitmap that outlives main()
/// still finds it; what it holds then returns with the process.
class KeptBlocks {
public:
    struct Block {
        std::byte* data = nullptr;
        std::size_t capacity = 0;
    };

    /// The smallest block that fits and wastes at most a quarter.
    Block take(std::size_t capacity)
    {
        Block* best = nullptr;
        for (Block& block : m_blocks) {
            const bool fits = block.data && block.capacity >= capacity && block.capacity - capacity <= capacity / 4;
            if (fits && (!best || block.capacity < best->capacity))
                best = &block;
        }
        if (!best)
            return {};
        const Block taken = *best;
        remove(best);
        return taken;
    }

    void keep(Block block, std::size_t limit)
    {
        if (block.capacity > limit) {
            unmapPages(block.data, block.capacity);
            return;
        }
        while (m_blocks.back().data || total() + block.capacity > limit)
            giveUpOldest();
        for (std::size_t i = m_blocks.size() - 1; i > 0; --i)
            m_blocks[i] = m_blocks[i - 1];
        m_blocks[0] = block;
    }

    bool giveUpOldest()
    {
        for (std::size_t i = m_blocks.size(); i-- > 0;) {
            if (m_blocks[i].data) {
                unmapPages(m_blocks[i].data, m_blocks[i].capacity);
                m_blocks[i] = {};
                return true;
            }
        }
        return false;
    }

    std::size_t total() const
    {
        std::size_t sum = 0;
        for (const Block& block : m_blocks)
            sum += block.capacity;
        return sum;
    }

private:
    void remove(Block* block)
    {
        for (; block != &m_blocks.back(); ++block)
            *block = *(block + 1);
        *block = {};
    }

    // An edit makes a new item render, drops the old one, makes a new raster and drops the old one: two blocks. While
    // an item grows, its old renders never fit; two more places keep them from pushing the raster out.
    std::array<Block, 4> m_blocks;
};

constinit KeptBlocks keptBlocks;
constinit std::size_t aliveBytes = 0;
constinit std::size_t refusedBlocks = 0;

std::size_t& totalLimit()
{
    static std::size_t limit = std::min(physicalMemory() / 3, sizeOf64(std::uint64_t{6} << 30));
    return limit;
}

std::size_t available()
{
    return totalLimit() - std::min(aliveBytes, totalLimit());
}

BitmapMemory refusal()
{
    ++refusedBlocks;
    return {};
}

} // namespace

BitmapMemory BitmapMemory::allocate(std::size_t bytes, bool cleared)
{
    if (bytes == 0)
        return {};
    if (bytes > maximumBlock())
        return refusal();
    std::size_t capacity = capacityFor(bytes);
    if (capacity > available())
        return refusal();

    std::byte* data = nullptr;
    bool zeroed = false;
    if (capacity < kLargeBlock) {
        data = static_cast<std::byte*>(std::aligned_alloc(kCacheLine, capacity));
    } else {
        const KeptBlocks::Block kept = keptBlocks.take(capacity);
        if (kept.data && kept.capacity <= available()) {
            data = kept.data;
            capacity = kept.capacity;
        } else {
            if (kept.data)
                unmapPages(kept.data, kept.capacity);
            while (keptBlocks.total() + aliveBytes + capacity > maximumTotal() && keptBlocks.giveUpOldest()) {
            }
            data = mapPages(capacity);
            while (!data && keptBlocks.giveUpOldest())
                data = mapPages(capacity);
            zeroed = true;
        }
    }
    if (!data)
        return refusal();
    if (cleared && !zeroed)
        std::memset(data, 0, bytes);
    return BitmapMemory(data, capacity);
}

BitmapMemory::BitmapMemory(std::byte* data, std::size_t capacity)
    : m_data(data)
    , m_capacity(capacity)
{
    aliveBytes += capacity;
}

BitmapMemory::BitmapMemory(BitmapMemory&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr))
    , m_capacity(std::exchange(other.m_capacity, 0))
{
}

BitmapMemory& BitmapMemory::operator=(BitmapMemory&& other) noexcept
{
    std::swap(m_data, other.m_data);
    std::swap(m_capacity, other.m_capacity);
    return *this;
}

BitmapMemory::~BitmapMemory()
{
    if (!m_data)
        return;
    aliveBytes -= m_capacity;
    if (m_capacity < kLargeBlock)
        std::free(m_data);
    else
        keptBlocks.keep({m_data, m_capacity}, maximumTotal() / 4);
}

std::size_t BitmapMemory::maximumBlock()
{
    // Where sizes have 32 bits, half of what they reach.
    return static_cast<std::size_t>(std::min<std::uint64_t>(std::uint64_t{4} << 30, PTRDIFF_MAX));
}

std::size_t BitmapMemory::maximumTotal()
{
    return totalLimit();
}

void BitmapMemory::setMaximumTotal(std::size_t bytes)
{
    totalLimit() = bytes;
}

std::size_t BitmapMemory::alive()
{
    return aliveBytes;
}

std::size_t BitmapMemory::refused()
{
    return refusedBlocks;
}

} // namespace wallgrid
