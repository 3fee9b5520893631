// SPDX-License-Identifier: MIT
#include "psd/merged_image.h"

#include "graphics/blend.h"
#include "graphics/pixel_runs.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

namespace {

/// The rows that are composed at a time.
constexpr std::size_t kBandBytes = std::size_t{256} << 10;

bool isOpaque(std::span<const Pixel> pixels)
{
    // Without a branch, so that the compiler looks at many pixels at a time.
    std::uint8_t alphas = 255;
    for (const Pixel pixel : pixels)
        alphas &= pixel.a;
    return alphas == 255;
}

/// Draws on rows that begin at row `top` of the image.
void drawOn(Bitmap& rows, int top, const MergedImage::Drawing& drawing)
{
    const auto& [picture, place, alpha] = drawing;
    const PixelRect shown = intersection({place.x, place.y, picture.rect.width, picture.rect.height},
                                         {0, top, rows.width(), rows.height()});
    if (alpha == 0 || shown.empty())
        return;
    const auto count = static_cast<std::size_t>(shown.width);
    std::vector<Pixel> faded(alpha == 255 ? 0 : count);
    for (std::int64_t y = shown.y; y < shown.bottom(); ++y) {
        auto pixels = picture.row(y - place.y).subspan(static_cast<std::size_t>(shown.x - place.x), count);
        Pixel* const below = rows.row(static_cast<int>(y - top)).data() + shown.x;
        if (alpha < 255) {
            scalePixels(faded.data(), pixels.data(), alpha, count);
            pixels = faded;
        }
        if (isOpaque(pixels))
            copyPixels(below, pixels.data(), count);
        else
            blendOver(below, pixels.data(), count);
    }
}

} // namespace

MergedImage::MergedImage(int width, int height, Pixel ground)
    : m_width(width)
    , m_height(height)
    , m_ground(ground)
{
}

MergedImage::MergedImage(BitmapRef bitmap)
    : m_width(bitmap ? bitmap->width() : 0)
    , m_height(bitmap ? bitmap->height() : 0)
    , m_bitmap(std::move(bitmap))
{
}

MergedImage MergedImage::snapshot()
{
    m_isShared = true;
    return *this;
}

void MergedImage::draw(Drawing drawing)
{
    if (m_bitmap && !m_isShared)
        drawOn(*m_bitmap, 0, drawing);
    else
        m_drawings.push_back(std::move(drawing));
}

BitmapRef MergedImage::bitmap()
{
    if (m_bitmap && m_drawings.empty())
        return m_bitmap;
    BitmapRef whole = Bitmap::create(m_width, m_height, Bitmap::Contents::Undefined);
    if (!whole)
        return nullptr;
    compose(*whole, 0);
    m_bitmap = std::move(whole);
    m_isShared = false;
    m_drawings.clear();
    return m_bitmap;
}

void MergedImage::compose(Bitmap& rows, int top) const
{
    const auto count = static_cast<std::size_t>(m_width);
    const int end = std::min(top + rows.height(), m_height);
    for (int y = top; y < end; ++y) {
        Pixel* const row = rows.row(y - top).data();
        if (m_bitmap)
            copyPixels(row, std::as_const(*m_bitmap).row(y).data(), count);
        else
            fillPixels(row, m_ground, count);
    }
    for (const Drawing& drawing : m_drawings)
        drawOn(rows, top, drawing);
}

MergedRows::MergedRows(const MergedImage& image)
    : m_image(image)
    , m_isBitmap(image.m_bitmap && image.m_drawings.empty())
{
    const std::size_t rows = kBandBytes / (static_cast<std::size_t>(image.width()) * sizeof(Pixel)) + 1;
    for (BitmapRef& band : m_bands) {
        if (!m_isBitmap)
            band = Bitmap::create(image.width(), static_cast<std::int64_t>(rows), Bitmap::Contents::Undefined);
    }
}

std::span<const Pixel> MergedRows::next()
{
    const int y = m_y++;
    if (m_isBitmap)
        return std::as_const(*m_image.m_bitmap).row(y);
    const int rows = m_bands[0]->height();
    const BitmapRef& band = m_bands[static_cast<std::size_t>(y / rows % 2)];
    if (y % rows == 0)
        m_image.compose(*band, y);
    return std::as_const(*band).row(y % rows);
}

} // namespace wallgrid
