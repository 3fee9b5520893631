// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace wallgrid {

/// Sizes and frames in points. One point is one pixel everywhere in this program; only an image whose file records
/// a resolution other than 72 dots per inch has more or fewer pixels than points.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    Point origin;
    Size size;
    bool operator==(const Rect&) const = default;
};

/// Whole pixels, counted from the top-left corner of a bitmap or of the output: x to the right, y downwards. 64 bits
/// wide, so that sums of 32-bit item fields cannot overflow.
struct PixelPoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
    bool operator==(const PixelPoint&) const = default;
    PixelPoint operator+(PixelPoint other) const { return {x + other.x, y + other.y}; }
    PixelPoint operator-() const { return {-x, -y}; }
};

/// (x, y) is the top-left pixel; right and bottom are the first pixels outside.
struct PixelRect {
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;

    std::int64_t right() const { return x + width; }
    std::int64_t bottom() const { return y + height; }
    PixelPoint origin() const { return {x, y}; }
    bool empty() const { return width <= 0 || height <= 0; }
    PixelRect movedBy(PixelPoint distance) const { return {x + distance.x, y + distance.y, width, height}; }
    bool operator==(const PixelRect&) const = default;
};

/// The common part of two rectangles; empty (width or height 0 or less) when they do not meet.
PixelRect intersection(const PixelRect& a, const PixelRect& b);
/// The smallest rectangle that holds the edges of both.
PixelRect united(const PixelRect& a, const PixelRect& b);

} // namespace wallgrid
