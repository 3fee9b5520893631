// SPDX-License-Identifier: MIT
#pragma once

#include "graphics/bitmap.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <initializer_list>
#include <map>
#include <ostream>
#include <random>
#include <string_view>

namespace wallgrid {

inline void PrintTo(const Pixel& p, std::ostream* out)
{
    *out << "ARGB(" << int(p.a) << ", " << int(p.r) << ", " << int(p.g) << ", " << int(p.b) << ")";
}

namespace test {

/// A bitmap written out as text, one string a row, the top one first: R G B W K are opaque red, green, blue, white and
/// black, '.' is transparent.
inline BitmapRef picture(std::initializer_list<std::string_view> rows)
{
    const std::map<char, Pixel> pixels{{'.', {}},
                                       {'R', {255, 255, 0, 0}},
                                       {'G', {255, 0, 255, 0}},
                                       {'B', {255, 0, 0, 255}},
                                       {'W', {255, 255, 255, 255}},
                                       {'K', {255, 0, 0, 0}}};
    const BitmapRef bitmap = Bitmap::create(std::ssize(*rows.begin()), std::ssize(rows));
    for (int y = 0; const std::string_view row : rows)
        std::ranges::transform(row, bitmap->row(y++).begin(), [&](char letter) { return pixels.at(letter); });
    return bitmap;
}

/// Random pixels whose colours do not pass their alpha; a third opaque, a third transparent, in runs.
inline BitmapRef randomPicture(int width, int height, std::uint32_t seed)
{
    std::mt19937 random(seed);
    const BitmapRef bitmap = Bitmap::create(width, height, Bitmap::Contents::Undefined);
    unsigned alpha = 0;
    for (Pixel& pixel : std::span(bitmap->pixels(), std::size_t(width) * std::size_t(height))) {
        if (random() % 8 == 0 || (alpha != 0 && alpha != 255))
            alpha = std::array{0U, 255U, unsigned(random() % 256)}[random() % 3];
        const auto sample = [&] { return static_cast<std::uint8_t>(random() % (alpha + 1)); };
        pixel = {static_cast<std::uint8_t>(alpha), sample(), sample(), sample()};
    }
    return bitmap;
}

/// Whether two pictures are the same, or both none; if not, the first pixel that differs (x, y from the top left).
inline testing::AssertionResult samePicture(const BitmapRef& actual, const BitmapRef& expected)
{
    const auto size = [](const BitmapRef& b) { return b ? std::pair(b->width(), b->height()) : std::pair(0, 0); };
    const auto [width, height] = size(actual);
    if (size(actual) != size(expected))
        return testing::AssertionFailure() << "size " << testing::PrintToString(size(actual)) << " instead of "
                                           << testing::PrintToString(size(expected));
    for (int y = 0; y < height; ++y) {
        const auto [a, e] = std::ranges::mismatch(actual->row(y), expected->row(y));
        if (a != actual->row(y).end())
            return testing::AssertionFailure()
                   << a - actual->row(y).begin() << ", " << y << ": " << testing::PrintToString(*a) << " instead of "
                   << testing::PrintToString(*e);
    }
    return testing::AssertionSuccess();
}

} // namespace test
} // namespace wallgrid
