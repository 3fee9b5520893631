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
constexpr int kLeastVisible = 64;

double limited(double origin, int picture, int view)
{
    const int least = std::min({kLeastVisible, picture, view});
    return std::clamp<double>(origin, least - picture, view - least);
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
        fit();
    else
        pan(change); // what was in the middle stays there
}

double Viewport::fittedScale() const
{
    if (m_raster.isEmpty())
        return 1;
    const auto share = [this](int room, int length) { return std::max(1., double(room) - 2 * m_margin) / length; };
    return std::min({1., share(m_view.width(), m_raster.width()), share(m_view.height(), m_raster.height())});
}

void Viewport::setScale(double scale)
{
    const double largest =
        std::min(kSteps.back(), kLongestPicture / std::max({1, m_raster.width(), m_raster.height()}));
    m_scale = std::clamp(scale, std::min({kSteps.front(), fittedScale(), largest}), largest);
    m_picture = {scaledLength(m_raster.width(), m_scale), scaledLength(m_raster.height(), m_scale)};
}

void Viewport::fit()
{
    m_fitted = true;
    setScale(fittedScale());
    // Whole, so that the two sides differ by no more than a pixel.
    m_origin = QPoint((m_view.width() - m_picture.width()) / 2, (m_view.height() - m_picture.height()) / 2);
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
    m_origin = {limited(origin.x(), m_picture.width(), m_view.width()),
                limited(origin.y(), m_picture.height(), m_view.height())};
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
    if (m_raster.isEmpty())
        return {};
    const auto x = [this](std::int64_t column) {
        return picture().x() + std::round(double(column) * m_picture.width() / m_raster.width());
    };
    const auto y = [this](std::int64_t row) {
        return picture().y() + std::round(double(row) * m_picture.height() / m_raster.height());
    };
    return {QPointF(x(rect.x), y(rect.y)), QPointF(x(rect.right()), y(rect.bottom()))};
}

} // namespace wallgrid
