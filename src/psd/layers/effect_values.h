// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/color.h"

#include <algorithm>
#include <cstdint>

/// The bounds that the setters of effect descriptions keep, and how the values go into a file.
namespace wallgrid::effect {

inline std::int64_t size(std::int64_t pixels)
{
    return std::clamp<std::int64_t>(pixels, 0, 250);
}

inline std::int64_t angle(std::int64_t degrees)
{
    return std::clamp<std::int64_t>(degrees, -360, 360);
}

inline std::int64_t distance(std::int64_t pixels)
{
    return std::clamp<std::int64_t>(pixels, 0, 30000);
}

inline std::int64_t percent(std::int64_t percent)
{
    return std::clamp<std::int64_t>(percent, 0, 100);
}

/// 100 percent is 254: the product lies just below 255.
inline std::int64_t opacity255(std::int64_t percent)
{
    return static_cast<std::int64_t>(static_cast<double>(percent) * 2.55);
}

inline ColorRef transparentBlack()
{
    return Color::deviceRGB(0, 0, 0, 0);
}

} // namespace wallgrid::effect
