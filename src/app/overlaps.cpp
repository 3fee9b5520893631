// SPDX-License-Identifier: MIT
#include "app/overlaps.h"

#include "app/arrangement.h"

#include <algorithm>
#include <vector>

namespace wallgrid {

namespace {

/// Counts of numbers up to a bound (P. M. Fenwick, "A new data structure for cumulative frequency tables", 1994).
class CountsUpTo {
public:
    explicit CountsUpTo(std::size_t numbers)
        : m_sums(numbers + 1)
    {
    }
    void add(std::size_t number)
    {
        for (++number; number < m_sums.size(); number += number & (~number + 1))
            ++m_sums[number];
    }
    /// How many numbers were added that are less than a bound.
    std::int64_t below(std::size_t bound) const
    {
        std::int64_t sum = 0;
        for (; bound > 0; bound &= bound - 1)
            sum += m_sums[bound];
        return sum;
    }

private:
    std::vector<std::int64_t> m_sums;
};

struct Box {
    PixelRect rect;
    std::size_t row;
};

/// Adds to `counts`, for each box, the weight of every box that ends at or before its left edge and, unless `anywhere`,
/// at or above its top edge too.
void countBefore(const std::vector<Box>& boxes, bool anywhere, std::int64_t weight, std::vector<std::int64_t>& counts)
{
    std::vector<std::size_t> byLeft(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i)
        byLeft[i] = i;
    std::vector<std::size_t> byRight = byLeft;
    std::sort(byLeft.begin(), byLeft.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a].rect.x < boxes[b].rect.x; });
    std::sort(byRight.begin(), byRight.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a].rect.right() < boxes[b].rect.right(); });
    std::vector<std::int64_t> bottoms;
    for (const Box& box : boxes)
        bottoms.push_back(box.rect.bottom());
    std::sort(bottoms.begin(), bottoms.end());
    const auto rank = [&](std::int64_t bottom) {
        return static_cast<std::size_t>(std::lower_bound(bottoms.begin(), bottoms.end(), bottom) - bottoms.begin());
    };

    CountsUpTo ended(boxes.size());
    auto next = byRight.begin();
    for (const std::size_t i : byLeft) {
        for (; next != byRight.end() && boxes[*next].rect.right() <= boxes[i].rect.x; ++next)
            ended.add(rank(boxes[*next].rect.bottom()));
        const std::size_t bound = anywhere ? boxes.size() : rank(boxes[i].rect.y + 1);
        counts[i] += weight * ended.below(bound);
    }
}

} // namespace

Overlaps findOverlaps(const ItemArray& layers)
{
    std::vector<Box> boxes;
    for (std::size_t row = 0; row < layers.size(); ++row) {
        const PixelRect place = layers[row]->frame();
        if (layers[row]->visible() && !place.empty())
            boxes.push_back({place, row});
    }
    // Two boxes are apart when one ends before the other begins, to the left, to the right, above or below. Those that
    // are apart in both directions are counted twice, and so are taken back once.
    std::vector<std::int64_t> apart(boxes.size());
    for (int turn = 0; turn < 4; ++turn) {
        countBefore(boxes, true, 1, apart);
        countBefore(boxes, false, -1, apart);
        for (Box& box : boxes) // a quarter turn, so that the next of the four directions is "left"
            box.rect = {box.rect.y, -box.rect.right(), box.rect.height, box.rect.width};
    }
    Overlaps overlaps;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const std::int64_t partners = static_cast<std::int64_t>(boxes.size()) - 1 - apart[i];
        overlaps.pairs += partners;
        if (partners > 0)
            overlaps.rows.insert(overlaps.rows.end(), boxes[i].row);
    }
    overlaps.pairs /= 2;
    return overlaps;
}

} // namespace wallgrid
