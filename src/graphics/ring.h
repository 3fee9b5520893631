// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace wallgrid {

/// What lies between two circles around one centre, in pixels of a bitmap. The centre and the radii are multiples of
/// one half; an inner radius of 0 or less makes a disc.
struct Ring {
    double centerX;
    double centerY;
    double outerRadius;
    double innerRadius;
};

/// A disc, cut by a horizontal strip on one side of its centre: everything is relative to the centre and never
/// negative.
class DiscStrip {
public:
    DiscStrip(double radius, double bottom, double top);

    /// The area that disc and strip share between two columns.
    double area(double left, double right) const;

    /// The disc fills the strip up to here ...
    double filledTo() const { return m_filledTo; }
    /// ... and leaves it here.
    double reachesTo() const { return m_reachesTo; }

private:
    double heightAt(double x) const;

    double m_radius;
    double m_bottom;
    double m_top;
    double m_filledTo;
    double m_reachesTo;
};

/// A ring in one row of pixels: where it is, and how much of each pixel it covers. Only + − × / and square roots,
/// which IEEE 754 rounds alike everywhere, so every machine draws the same pixels.
///
/// A pixel's coverage is the area that the outer disc shares with it less the area that the inner disc shares. That
/// area is a rectangle, a trapezium under the chord and the segment between chord and arc. A chord c of a circle of
/// radius R, with s = c / 2R, cuts off R² (asin s − s √(1 − s²)); the difference of the two power series (NIST Digital
/// Library of Mathematical Functions, 4.24.1 and 4.6.7) is R² Σ C(2n, n) / 4ⁿ × 4n / (4n² − 1) × s²ⁿ⁺¹, n ≥ 1, free
/// of cancellation.
class RingRow {
public:
    /// Pixels from begin up to, not including, end; none when they are equal.
    struct Columns {
        std::int64_t begin;
        std::int64_t end;
        bool contains(std::int64_t x) const { return begin <= x && x < end; }
    };

    RingRow(const Ring& ring, std::int64_t y);

    /// No pixel outside is covered.
    const Columns& touched() const { return m_touched; }
    /// Pixels that lie wholly inside the inner circle.
    const Columns& hole() const { return m_hole; }
    /// Pixels that are wholly covered, on either side of the hole.
    const Columns& solidLeft() const { return m_solidLeft; }
    const Columns& solidRight() const { return m_solidRight; }
    /// From 0 to 1, for any pixel of the row.
    double coverage(std::int64_t x) const;

private:
    /// An interval on one side of the centre; `weight` is 2 for one that stood evenly on both sides.
    struct Folded {
        double from;
        double to;
        double weight;
    };
    static Folded folded(double from);
    RingRow(const Ring& ring, const Folded& rows);

    double m_centerX;
    double m_weight;
    DiscStrip m_outer;
    DiscStrip m_inner;
    Columns m_touched;
    Columns m_hole;
    Columns m_solidLeft;
    Columns m_solidRight;
};

} // namespace wallgrid
