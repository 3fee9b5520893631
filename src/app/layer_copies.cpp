// SPDX-License-Identifier: MIT
#include "app/layer_copies.h"

#include "app/arrangement.h"
#include "app/layer_names.h"

#include <algorithm>

namespace wallgrid {

namespace {

/// To the place of copies of what is around.
PixelPoint beside(const GXAppDelegate& delegate, const PixelRect& around)
{
    const bool fitsRight = around.x + 2 * around.width <= delegate.OutputWidth();
    const bool fitsBelow = around.y + 2 * around.height <= delegate.OutputHeight();
    return !fitsRight && fitsBelow ? PixelPoint{0, around.height} : PixelPoint{around.width, 0};
}

/// The items are in no list yet, so nobody is told.
void place(const ItemArray& items, PixelPoint distance, RunningNames& names)
{
    for (const ItemRef& item : items) {
        item->setLabel(names.unused(item->label()));
        moveTo(*item, item->frame().origin() + distance);
    }
}

ItemArray copies(const ItemArray& originals)
{
    ItemArray made;
    for (const ItemRef& item : originals)
        made.push_back(item->duplicate());
    return made;
}

} // namespace

void duplicateLayers(GXAppDelegate& delegate)
{
    auto& layers = delegate.arraycontroller();
    const ItemArray originals = selectedLayers(delegate);
    if (originals.empty())
        return;
    const ItemArray made = copies(originals);
    RunningNames names(layers.arrangedObjects());
    place(made, beside(delegate, placeAround(originals)), names);
    layers.insertObjectsAtArrangedObjectIndex(made, *layers.selectionIndex());
}

void makeArray(GXAppDelegate& delegate, const ArrayLayout& layout)
{
    auto& layers = delegate.arraycontroller();
    const ItemArray originals = selectedLayers(delegate);
    if (originals.empty() || layout.across == 0 || layout.down == 0 ||
        layout.across > ArrayLayout::kMostCopies / layout.down / originals.size())
        return;
    const PixelRect around = placeAround(originals);
    RunningNames names(layers.arrangedObjects());
    ItemArray all;
    for (std::size_t i = 1; i < layout.across * layout.down; ++i) {
        const auto column = static_cast<std::int64_t>(i % layout.across);
        const auto row = static_cast<std::int64_t>(i / layout.across);
        const ItemArray made = copies(originals);
        place(made, {column * (around.width + layout.gapAcross), row * (around.height + layout.gapDown)}, names);
        all.insert(all.end(), made.begin(), made.end());
    }
    auto selected = layers.selectionIndexes();
    const std::size_t behind = *selected.rbegin() + 1;
    layers.insertObjectsAtArrangedObjectIndex(all, behind);
    for (std::size_t i = 0; i < all.size(); ++i)
        selected.insert(selected.end(), behind + i);
    layers.setSelectionIndexes(selected);
}

void pasteLayers(GXAppDelegate& delegate, const ItemArray& items)
{
    auto& layers = delegate.arraycontroller();
    const bool covered = std::any_of(items.begin(), items.end(), [&](const ItemRef& item) {
        const ItemArray& present = layers.arrangedObjects();
        return std::any_of(present.begin(), present.end(),
                           [&](const ItemRef& layer) { return layer->frame() == item->frame(); });
    });
    RunningNames names(layers.arrangedObjects());
    place(items, covered ? beside(delegate, placeAround(items)) : PixelPoint{}, names);
    layers.insertObjectsAtArrangedObjectIndex(items, layers.selectionIndex().value_or(0));
}

} // namespace wallgrid
