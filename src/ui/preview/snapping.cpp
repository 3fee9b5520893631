// SPDX-License-Identifier: MIT
#include "ui/preview/snapping.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace wallgrid {

namespace {

/// The edges of a rectangle along one axis, and its extent along the other one.
struct Span {
    std::array<std::int64_t, 2> edges;
    std::int64_t from;
    std::int64_t to;
};

Span spanOf(const PixelRect& rect, Qt::Orientation edges)
{
    if (edges == Qt::Vertical)
        return {{rect.x, rect.right()}, rect.y, rect.bottom()};
    return {{rect.y, rect.bottom()}, rect.x, rect.right()};
}

/// Twice as far as the middle of one span is from the other's.
std::int64_t twiceBetweenMiddles(const Span& from, const Span& to)
{
    return to.edges[0] + to.edges[1] - from.edges[0] - from.edges[1];
}

std::int64_t nearestPlace(const PixelRect& moving, const std::vector<PixelRect>& targets, std::int64_t tolerance,
                          Qt::Orientation edges)
{
    std::int64_t nearest = 0;
    bool found = false;
    const auto consider = [&](std::int64_t distance) {
        if (std::abs(distance) > tolerance)
            return;
        if (!found || std::abs(distance) < std::abs(nearest) || distance == -std::abs(nearest))
            nearest = distance;
        found = true;
    };
    const Span own = spanOf(moving, edges);
    for (const PixelRect& target : targets) {
        const Span other = spanOf(target, edges);
        for (const std::int64_t to : other.edges) {
            for (const std::int64_t from : own.edges)
                consider(to - from);
        }
        consider(twiceBetweenMiddles(own, other) / 2);
    }
    return nearest;
}

/// A guide from end to end of all the targets that meet there; none when none does.
template <class Meets>
void addGuide(std::vector<Guide>& guides, Guide guide, const std::vector<PixelRect>& targets, Meets meets)
{
    bool any = false;
    for (const PixelRect& target : targets) {
        const Span other = spanOf(target, guide.orientation);
        if (!meets(other))
            continue;
        guide.from = std::min(guide.from, other.from);
        guide.to = std::max(guide.to, other.to);
        any = true;
    }
    if (any)
        guides.push_back(guide);
}

void addGuides(std::vector<Guide>& guides, const PixelRect& moving, const std::vector<PixelRect>& targets,
               Qt::Orientation edges)
{
    const Span own = spanOf(moving, edges);
    for (const std::int64_t at : own.edges) {
        addGuide(guides, {edges, at, own.from, own.to}, targets,
                 [at](const Span& other) { return other.edges[0] == at || other.edges[1] == at; });
    }
    // An odd length has its middle within a pixel, so half a pixel is as good as none.
    addGuide(guides, {edges, (own.edges[0] + own.edges[1]) / 2, own.from, own.to}, targets,
             [&own](const Span& other) { return std::abs(twiceBetweenMiddles(own, other)) <= 1; });
}

} // namespace

Snap snapped(const PixelRect& moving, const std::vector<PixelRect>& targets, std::int64_t tolerance)
{
    Snap snap;
    snap.distance.x = nearestPlace(moving, targets, tolerance, Qt::Vertical);
    snap.distance.y = nearestPlace(moving, targets, tolerance, Qt::Horizontal);
    const PixelRect there = moving.movedBy(snap.distance);
    addGuides(snap.guides, there, targets, Qt::Vertical);
    addGuides(snap.guides, there, targets, Qt::Horizontal);
    return snap;
}

} // namespace wallgrid
