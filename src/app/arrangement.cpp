// SPDX-License-Identifier: MIT
#include "app/arrangement.h"

#include <algorithm>

namespace wallgrid {

namespace {

struct Move {
    ItemRef item;
    PixelPoint point;
};

/// The controller draws only the first selected layer again by itself.
void moveAll(GXAppDelegate& delegate, const std::vector<Move>& moves)
{
    bool drawn = false;
    for (const auto& [item, point] : moves)
        drawn |= moveTo(*item, point);
    if (drawn)
        delegate.update();
}

/// A layer along one direction.
struct Span {
    std::int64_t begin;
    std::int64_t length;
};

Span along(const PixelRect& rect, Direction direction)
{
    return direction == Direction::Across ? Span{rect.x, rect.width} : Span{rect.y, rect.height};
}

Move movedTo(const ItemRef& item, Direction direction, std::int64_t begin)
{
    return {item,
            direction == Direction::Across ? PixelPoint{begin, item->ypoint()} : PixelPoint{item->xpoint(), begin}};
}

/// Half of a length, downwards, so that the same lengths always meet in the same way.
std::int64_t half(std::int64_t length)
{
    return length >> 1;
}

} // namespace

ItemArray selectedLayers(const GXAppDelegate& delegate)
{
    const auto& layers = delegate.arraycontroller();
    ItemArray selected;
    for (const std::size_t row : layers.selectionIndexes())
        selected.push_back(layers.arrangedObjects()[row]);
    return selected;
}

bool moveTo(GXItem& item, PixelPoint point)
{
    if (!item.setPosition(point) || !item.XYFontEnable())
        return false;
    item.drawInRect();
    return true;
}

PixelRect placeAround(const ItemArray& items)
{
    PixelRect around;
    for (const ItemRef& item : items)
        around = item == items.front() ? item->frame() : united(around, item->frame());
    return around;
}

void alignLayers(GXAppDelegate& delegate, Direction direction, Edge edge, const PixelRect& frame)
{
    const Span target = along(frame, direction);
    std::vector<Move> moves;
    for (const ItemRef& item : selectedLayers(delegate)) {
        const std::int64_t room = target.length - along(item->frame(), direction).length;
        const std::int64_t distance = edge == Edge::Near ? 0 : edge == Edge::Middle ? half(room) : room;
        moves.push_back(movedTo(item, direction, target.begin + distance));
    }
    moveAll(delegate, moves);
}

void distributeLayers(GXAppDelegate& delegate, Direction direction)
{
    ItemArray items = selectedLayers(delegate);
    if (items.size() < 3)
        return;
    const auto middle = [direction](const ItemRef& item) {
        const Span span = along(item->frame(), direction);
        return 2 * span.begin + span.length;
    };
    std::stable_sort(items.begin(), items.end(),
                     [&](const ItemRef& a, const ItemRef& b) { return middle(a) < middle(b); });
    std::int64_t lengths = 0;
    for (const ItemRef& item : items)
        lengths += along(item->frame(), direction).length;
    const Span first = along(items.front()->frame(), direction);
    const Span last = along(items.back()->frame(), direction);
    const auto gaps = static_cast<std::int64_t>(items.size()) - 1;
    const std::int64_t room = last.begin + last.length - first.begin - lengths;
    std::int64_t gap = room / gaps;
    std::int64_t left = room % gaps;
    if (left < 0) { // layers that overlap do so evenly too
        --gap;
        left += gaps;
    }
    std::vector<Move> moves;
    std::int64_t begin = first.begin;
    for (const ItemRef& item : items) {
        moves.push_back(movedTo(item, direction, begin));
        begin += along(item->frame(), direction).length + gap + (left-- > 0 ? 1 : 0);
    }
    moveAll(delegate, moves);
}

void placeInRows(GXAppDelegate& delegate, const Rows& rows)
{
    const ItemArray items = selectedLayers(delegate);
    if (items.empty() || rows.perRow == 0)
        return;
    const PixelRect first = items.front()->frame();
    std::vector<Move> moves;
    std::int64_t x = first.x;
    std::int64_t y = first.y;
    std::int64_t tallest = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0 && i % rows.perRow == 0) {
            x = first.x;
            y += tallest + rows.gapDown;
            tallest = 0;
        }
        const PixelRect place = items[i]->frame();
        moves.push_back({items[i], {x, y}});
        x += place.width + rows.gapAcross;
        tallest = std::max(tallest, place.height);
    }
    moveAll(delegate, moves);
}

} // namespace wallgrid
