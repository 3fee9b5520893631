// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace wallgrid {

/// Packs the channels of a row of pixels. It looks for runs of whole pixels first, once for all channels: flat artwork
/// has few, and the runs of each channel follow from them. Rows with many have their channels laid apart and each
/// searched.
class PixelRow {
public:
    static constexpr std::size_t kChannels = 4; ///< red, green, blue, alpha: the order of a file

    /// The row that is packed from now on. It stays the caller's.
    void set(std::span<const Pixel> pixels);
    /// Writes a channel and returns how many bytes that took. There is room for largestPackedSize().
    std::size_t pack(std::size_t channel, std::uint8_t* packed);

private:
    void findRuns(std::size_t pixelRuns);
    void splitChannels();
    void fetchAhead(std::size_t quarter) const;

    std::span<const Pixel> m_pixels;
    std::vector<std::uint64_t> m_repeats;
    bool m_hasFewRuns = false;
    /// When runs are few: where those of each channel end.
    std::array<std::vector<std::uint32_t>, kChannels> m_runEnds;
    /// When runs are many: one channel behind the other.
    std::vector<std::uint8_t> m_samples;
};

} // namespace wallgrid
