// SPDX-License-Identifier: MIT
#include "app/raster_composer.h"

#include "graphics/bitmap_memory.h"
#include "graphics/graphics_context.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wallgrid {

namespace {

/// Composed at a time: its pixels stay in the nearer cache from the ground to the last picture, and what one picture
/// hides of it is not drawn at all.
constexpr std::int64_t kTileWidth = 256;
constexpr std::int64_t kTileHeight = 32;
/// More rectangles than this become one that holds them all.
constexpr std::size_t kMostRects = 16;

std::int64_t area(const PixelRect& rect)
{
    return rect.width * rect.height;
}

/// Adds a rectangle. It is joined with each rectangle where the two cost less together than apart.
void add(std::vector<PixelRect>& rects, PixelRect rect)
{
    if (rect.empty())
        return;
    const auto belongsTo = [&](const PixelRect& other) {
        return rects.size() >= kMostRects || area(united(rect, other)) <= area(rect) + area(other);
    };
    for (auto other = rects.begin(); (other = std::find_if(rects.begin(), rects.end(), belongsTo)) != rects.end();) {
        rect = united(rect, *other);
        rects.erase(other);
    }
    rects.push_back(rect);
}

bool isOpaque(const ColorRef& color)
{
    return !color || color->pixel().a == 255;
}

using Pictures = std::vector<const RasterScene::Picture*>;

Pictures picturesOn(const PixelRect& part, const Pictures& pictures)
{
    Pictures found;
    std::copy_if(pictures.begin(), pictures.end(), std::back_inserter(found),
                 [&](const auto* picture) { return !intersection(picture->frame, part).empty(); });
    return found;
}

bool hides(const RasterScene::Picture& picture, const PixelRect& part)
{
    const auto& [image, frame] = picture;
    if (!image->unscaled())
        return false; // there may be no memory to scale it
    const PixelRect shown = intersection(frame, image->extentIn(frame));
    return intersection(shown, part) == part && image->isOpaque();
}

/// The pictures are those that reach into the tile, the lowest first. Adds those that there is no memory to scale.
void composeTile(const BitmapRef& raster, const RasterScene& scene, const PixelRect& tile, const Pictures& pictures,
                 Pictures& refused)
{
    // Pictures never change the raster's alpha, so over an opaque ground "atop" stays "over", which need not read it.
    const bool opaqueGround = isOpaque(scene.ground) && isOpaque(scene.edge);
    const auto operation = opaqueGround ? CompositingOperation::SourceOver : CompositingOperation::SourceAtop;
    const auto hiding =
        std::find_if(pictures.rbegin(), pictures.rend(), [&](const auto* picture) { return hides(*picture, tile); });
    const bool hidden = hiding != pictures.rend();

    GraphicsContext context(raster);
    context.clipToRect(tile);
    if (!hidden || !opaqueGround) {
        const PixelRect bounds{0, 0, scene.width, scene.height};
        context.setColor(scene.ground);
        context.fillRect(bounds);
        context.setColor(scene.edge);
        context.frameRect(bounds, 1);
    }
    for (auto picture = hidden ? hiding.base() - 1 : pictures.begin(); picture != pictures.end(); ++picture) {
        const auto& [image, frame] = **picture;
        const std::size_t refusedBefore = BitmapMemory::refused();
        context.drawImage(*image, frame, operation);
        if (BitmapMemory::refused() != refusedBefore)
            refused.push_back(*picture);
    }
}

void composePart(const BitmapRef& raster, const RasterScene& scene, const PixelRect& part, Pictures& refused)
{
    Pictures all;
    for (const RasterScene::Picture& picture : scene.pictures)
        if (!intersection(picture.frame, part).empty())
            all.push_back(&picture);
    for (std::int64_t y = part.y; y < part.bottom(); y += kTileHeight) {
        const PixelRect band = intersection(part, {part.x, y, part.width, kTileHeight});
        const Pictures pictures = picturesOn(band, all);
        for (std::int64_t x = part.x; x < part.right(); x += kTileWidth) {
            const PixelRect tile = intersection(band, {x, y, kTileWidth, kTileHeight});
            composeTile(raster, scene, tile, picturesOn(tile, pictures), refused);
        }
    }
}

} // namespace

bool RasterComposer::Composed::operator==(const Composed& other) const
{
    return frame == other.frame && size == other.size && !bitmap.owner_before(other.bitmap) &&
           !other.bitmap.owner_before(bitmap);
}

BitmapRef RasterComposer::compose(const RasterScene& scene)
{
    const PixelRect bounds{0, 0, scene.width, scene.height};
    const Pixel fill = scene.ground ? scene.ground->pixel() : Pixel{255, 0, 0, 0};
    const Ground ground{fill, scene.edge ? scene.edge->pixel() : fill};
    std::vector<Composed> pictures;
    pictures.reserve(scene.pictures.size());
    for (const auto& [image, frame] : scene.pictures)
        pictures.push_back({image->firstRepresentation(), image->size(), frame, intersection(frame, bounds)});

    // Not kept while it is drawn on: nothing is built upon a raster whose composition an exception ended.
    BitmapRef raster = std::exchange(m_raster, nullptr);
    std::vector<PixelRect> parts{bounds};
    if (raster && raster.use_count() == 1 && raster->width() == scene.width && raster->height() == scene.height) {
        if (ground == m_ground)
            parts = differences(pictures);
    } else {
        raster = nullptr; // first, so that a large one need not fit into memory twice and its pages serve again
        raster = Bitmap::create(scene.width, scene.height, Bitmap::Contents::Undefined);
    }
    if (!raster)
        return nullptr;
    Pictures refused;
    for (const PixelRect& part : parts)
        composePart(raster, scene, part, refused);
    // Composed again the next time, when there may be memory.
    for (const RasterScene::Picture* picture : refused)
        pictures[static_cast<std::size_t>(picture - scene.pictures.data())].bitmap.reset();
    m_ground = ground;
    m_composed = std::move(pictures);
    m_raster = raster;
    return raster;
}

std::vector<PixelRect> RasterComposer::differences(const std::vector<Composed>& pictures) const
{
    // A pixel stays the same when the pictures over it are the same in the same order: so it is outside all pictures
    // that have no equal at their place in the other list, counted from the start or, behind what was inserted, the
    // end.
    auto [before, now] = std::mismatch(m_composed.begin(), m_composed.end(), pictures.begin(), pictures.end());
    const auto [beforeEnd, nowEnd] = std::mismatch(m_composed.rbegin(), std::make_reverse_iterator(before),
                                                   pictures.rbegin(), std::make_reverse_iterator(now));
    std::vector<PixelRect> rects;
    const bool paired = beforeEnd.base() - before == nowEnd.base() - now;
    for (; paired && before != beforeEnd.base(); ++before, ++now) {
        if (*before != *now) {
            add(rects, before->shown);
            add(rects, now->shown);
        }
    }
    for (; before != beforeEnd.base(); ++before)
        add(rects, before->shown);
    for (; now != nowEnd.base(); ++now)
        add(rects, now->shown);
    return rects;
}

} // namespace wallgrid
