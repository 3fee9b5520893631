// SPDX-License-Identifier: MIT
#pragma once

#include "platform/bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <initializer_list>
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
    const auto pixel = [](char letter) -> Pixel {
        switch (letter) {
        case 'R':
            return {255, 255, 0, 0};
        case 'G':
            return {255, 0, 255, 0};
        case 'B':
            return {255, 0, 0, 255};
        case 'W':
            return {255, 255, 255, 255};
        case 'K':
            return {255, 0, 0, 0};
        default:
            return {};
        }
    };
    const BitmapRef bitmap =
        Bitmap::create(static_cast<std::int64_t>(rows.begin()->size()), static_cast<std::int64_t>(rows.size()));
    int y = 0;
    for (const std::string_view row : rows)
        std::transform(row.begin(), row.end(), bitmap->row(y++).begin(), pixel);
    return bitmap;
}

/// Random pixels whose colours do not pass their alpha; a third opaque, a third transparent, in runs.
inline BitmapRef randomPicture(int width, int height, std::uint32_t seed)
{
    std::mt19937 random(seed);
    const BitmapRef bitmap = Bitmap::create(width, height, Bitmap::Contents::Undefined);
    unsigned alpha = 0;
    for (int y = 0; y < height; ++y) {
        for (Pixel& pixel : bitmap->row(y)) {
            if (random() % 8 == 0 || (alpha != 0 && alpha != 255))
                alpha = std::array{0U, 255U, unsigned(random() % 256)}[random() % 3];
            const auto sample = [&] { return static_cast<std::uint8_t>(random() % (alpha + 1)); };
            pixel = {static_cast<std::uint8_t>(alpha), sample(), sample(), sample()};
        }
    }
    return bitmap;
}

/// Whether two pictures are the same; if not, where the first differing pixel is (x, y from the top left), how many
/// differ and by how much at most. `tolerance` is the difference of a sample that still passes.
inline testing::AssertionResult samePicture(const BitmapRef& actual, const BitmapRef& expected, int tolerance = 0)
{
    if (!actual || !expected)
        return actual == expected ? testing::AssertionSuccess()
                                  : testing::AssertionFailure() << (actual ? "a" : "no") << " bitmap";
    if (actual->width() != expected->width() || actual->height() != expected->height())
        return testing::AssertionFailure() << actual->width() << " x " << actual->height() << " pixels instead of "
                                           << expected->width() << " x " << expected->height();
    std::size_t count = 0;
    int worst = 0, firstX = 0, firstY = 0;
    for (int y = 0; y < actual->height(); ++y) {
        for (int x = 0; x < actual->width(); ++x) {
            const Pixel a = actual->at(x, y), e = expected->at(x, y);
            const int off =
                std::max({std::abs(a.a - e.a), std::abs(a.r - e.r), std::abs(a.g - e.g), std::abs(a.b - e.b)});
            if (off <= tolerance)
                continue;
            if (count++ == 0) {
                firstX = x;
                firstY = y;
            }
            worst = std::max(worst, off);
        }
    }
    if (count == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << count << " pixels differ, by " << worst << " at most; first (" << firstX
                                       << ", " << firstY << "): " << testing::PrintToString(actual->at(firstX, firstY))
                                       << " instead of " << testing::PrintToString(expected->at(firstX, firstY));
}

} // namespace test
} // namespace wallgrid
