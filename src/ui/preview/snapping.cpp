// SPDX-License-Identifier: MIT
#include "ui/preview/snapping.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace wallgrid {

namespace {

/// The edges of a box along one axis, and its extent along the other one.
struct Span {
    std::array<std::int64_t, 2> edges;
    std::int64_t from;
    std::int64_t to;
};

Span spanOf(const Box& box, Qt::Orientation edges)
{
    if (edges == Qt::Vertical)
        return {{box.left, box.right}, box.top, box.bottom};
    return {{box.top, box.bottom}, box.left, box.right};
}

std::int64_t nearestEdge(const Box& moving, const std::vector<Box>& targets, std::int64_t tolerance,
                         Qt::Orientation edges)
{
    std::int64_t nearest = 0;
    bool found = false;
    for (const Box& target : targets) {
        for (const std::int64_t to : spanOf(target, edges).edges) {
            for (const std::int64_t from : spanOf(moving, edges).edges) {
                const std::int64_t distance = to - from;
                if (std::abs(distance) > tolerance)
                    continue;
                if (!found || std::abs(distance) < std::abs(nearest) || distance == -std::abs(nearest))
                    nearest = distance;
                found = true;
            }
        }
    }
    return nearest;
}

void addGuides(std::vector<Guide>& guides, const Box& moving, const std::vector<Box>& targets, Qt::Orientation edges)
{
    const Span own = spanOf(moving, edges);
    for (const std::int64_t at : own.edges) {
        Guide guide{edges, at, own.from, own.to};
        bool meets = false;
        for (const Box& target : targets) {
            const Span other = spanOf(target, edges);
            if (other.edges[0] != at && other.edges[1] != at)
                continue;
            guide.from = std::min(guide.from, other.from);
            guide.to = std::max(guide.to, other.to);
            meets = true;
        }
        if (meets)
            guides.push_back(guide);
    }
}

} // namespace

Snap snapped(const Box& moving, const std::vector<Box>& targets, std::int64_t tolerance)
{
    Snap snap;
    snap.x = nearestEdge(moving, targets, tolerance, Qt::Vertical);
    snap.y = nearestEdge(moving, targets, tolerance, Qt::Horizontal);
    const Box there = moving.movedBy(snap.x, snap.y);
    addGuides(snap.guides, there, targets, Qt::Vertical);
    addGuides(snap.guides, there, targets, Qt::Horizontal);
    return snap;
}

} // namespace wallgrid
