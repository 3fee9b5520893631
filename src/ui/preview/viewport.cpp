// SPDX-License-Identifier: MIT
#include "ui/preview/viewport.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace wallgrid {

namespace {

constexpr std::array kSteps{0.01, 0.015,  0.02, 0.03, 0.04, 0.05, 1 / 16., 1 / 12., 1 / 8., 1 / 6., 1 / 4., 1 / 3.,
                            0.5,  2 / 3., 1.,   2.,   3.,   4.,   6.,      8.,      12.,    16.,    24.,    32.};
/// How near a scale counts as the step itself.
constexpr double kTolerance = 1.001;
/// Lengths of pictures stay far from the limits of their type.
constexpr double kLongestPicture = 1 << 29;
/// Of a picture that is panned out of the view, in pixels.
constexpr double kLeastVisible = 64;
/// Farther from the output nothing is shown, in pixels of the raster.
constexpr std::int64_t kFarthest = 200'000;

/// The origin of a picture that reaches from near to far of it.
double limited(double origin, double near, double far, double view)
{
    const double least = std::min({kLeastVisible, far - near, view});
    return std::clamp(origin, least - far, view - least - near);
}

/// The raster and a part beside it.
PixelRect reachWith(QSize raster, const PixelRect& part)
{
    const PixelRect inReach = intersection(part, {-kFarthest, -kFarthest, 2 * kFarthest, 2 * kFarthest});
    const PixelRect all{0, 0, raster.width(), raster.height()};
    return inReach.empty() ? all : united(all, inReach);
}

int scaledLength(int length, double scale)
{
    return length == 0 ? 0 : std::max(1, static_cast<int>(std::lround(length * scale)));
}

} // namespace

void Viewport::setRaster(QSize size)
{
    if (size == m_raster)
        return;
    m_raster = size.isEmpty() ? QSize(0, 0) : size;
    m_reach = {0, 0, m_raster.width(), m_raster.height()};
    if (m_fitted)
        fit();
    else
        zoomTo(m_scale, m_origin);
}

void Viewport::setView(QSize size, int margin)
{
    if (size == m_view && margin == m_margin)
        return;
    const QPoint change((size.width() - m_view.width()) / 2, (size.height() - m_view.height()) / 2);
    m_view = size;
    m_margin = margin;
    if (m_fitted)
        fit(m_reach);
    else
        pan(change); // what was in the middle stays there
}

double Viewport::scaleFor(const PixelRect& part) const
{
    if (part.empty())
        return 1;
    const auto share = [this](int room, std::int64_t length) {
        return std::max(1., double(room) - 2 * m_margin) / double(length);
    };
    return std::min(share(m_view.width(), part.width), share(m_view.height(), part.height));
}

void Viewport::setScale(double scale)
{
    const double largest =
        std::min(kSteps.back(), kLongestPicture / std::max({1, m_raster.width(), m_raster.height()}));
    m_scale = std::clamp(scale, std::min({kSteps.front(), scaleFor(m_reach), largest}), largest);
    m_picture = {scaledLength(m_raster.width(), m_scale), scaledLength(m_raster.height(), m_scale)};
}

QRectF Viewport::scaled(const PixelRect& part) const
{
    if (m_raster.isEmpty())
        return {};
    const auto x = [this](std::int64_t column) {
        return std::round(double(column) * m_picture.width() / m_raster.width());
    };
    const auto y = [this](std::int64_t row) {
        return std::round(double(row) * m_picture.height() / m_raster.height());
    };
    return {QPointF(x(part.x), y(part.y)), QPointF(x(part.right()), y(part.bottom()))};
}

QPointF Viewport::originToCenter(const PixelRect& part) const
{
    const QRectF shown = scaled(part);
    // Whole, so that the two sides differ by no more than a pixel.
    return {std::trunc((m_view.width() - shown.width()) / 2) - shown.x(),
            std::trunc((m_view.height() - shown.height()) / 2) - shown.y()};
}

void Viewport::fit(const PixelRect& beside)
{
    m_fitted = true;
    m_reach = reachWith(m_raster, beside);
    setScale(std::min(1., scaleFor(m_reach)));
    m_origin = originToCenter(m_reach);
}

void Viewport::show(const PixelRect& part)
{
    m_reach = reachWith(m_raster, part);
    const double scale = scaleFor(part);
    m_fitted = false;
    setScale(scale > 1 ? std::floor(scale) : scale);
    moveTo(originToCenter(part));
}

void Viewport::centerOn(const PixelRect& part)
{
    m_reach = reachWith(m_raster, part);
    m_fitted = false;
    moveTo(originToCenter(part));
}

void Viewport::zoomTo(double scale, QPointF about)
{
    const QPointF kept = (about - m_origin) / m_scale;
    m_fitted = false;
    setScale(scale);
    moveTo(about - kept * m_scale);
}

void Viewport::zoomIn(QPointF about)
{
    const auto* step = std::upper_bound(kSteps.begin(), kSteps.end(), m_scale * kTolerance);
    zoomTo(step == kSteps.end() ? kSteps.back() : *step, about);
}

void Viewport::zoomOut(QPointF about)
{
    const auto* step = std::lower_bound(kSteps.begin(), kSteps.end(), m_scale / kTolerance);
    if (step != kSteps.begin())
        zoomTo(step[-1], about);
}

void Viewport::pan(QPoint distance)
{
    m_fitted = false;
    moveTo(m_origin + distance);
}

void Viewport::moveTo(QPointF origin)
{
    const QRectF reach = scaled(m_reach);
    m_origin = {limited(origin.x(), reach.left(), reach.right(), m_view.width()),
                limited(origin.y(), reach.top(), reach.bottom(), m_view.height())};
}

QPointF Viewport::toRaster(QPointF point) const
{
    if (m_picture.isEmpty())
        return {};
    const QPointF inPicture = point - picture().topLeft();
    return {inPicture.x() * m_raster.width() / m_picture.width(),
            inPicture.y() * m_raster.height() / m_picture.height()};
}

QRectF Viewport::toView(const PixelRect& rect) const
{
    return m_raster.isEmpty() ? QRectF() : scaled(rect).translated(picture().topLeft());
}

} // namespace wallgrid
