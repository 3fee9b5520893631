// SPDX-License-Identifier: MIT
#include "graphics/color.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace wallgrid {

namespace {

/// Anything that is not a number paints as 0.
double painted(double component)
{
    return component > 0 ? std::min(component, 1.0) : 0.0;
}

std::uint8_t sample(double component)
{
    return static_cast<std::uint8_t>(std::floor(component * 255.0 + 0.5));
}

} // namespace

Color::Color(Space space, std::array<double, 4> components, double alpha,
             std::shared_ptr<const ArchivedForm> archivedForm)
    : m_space(space)
    , m_components(components)
    , m_alpha(alpha)
    , m_archivedForm(std::move(archivedForm))
{
}

ColorRef Color::calibratedRGB(double r, double g, double b, double alpha)
{
    return std::make_shared<Color>(Space::CalibratedRGB, std::array{r, g, b, 0.0}, alpha);
}

ColorRef Color::deviceRGB(double r, double g, double b, double alpha)
{
    return std::make_shared<Color>(Space::DeviceRGB, std::array{r, g, b, 0.0}, alpha);
}

ColorRef Color::calibratedWhite(double white, double alpha)
{
    return std::make_shared<Color>(Space::CalibratedWhite, std::array{white, 0.0, 0.0, 0.0}, alpha);
}

ColorRef Color::redColor()
{
    static const ColorRef color = calibratedRGB(1, 0, 0);
    return color;
}

ColorRef Color::greenColor()
{
    static const ColorRef color = calibratedRGB(0, 1, 0);
    return color;
}

ColorRef Color::whiteColor()
{
    static const ColorRef color = calibratedWhite(1);
    return color;
}

int Color::componentCount() const
{
    switch (m_space) {
    case Space::CalibratedRGB:
    case Space::DeviceRGB:
        return 3;
    case Space::CalibratedWhite:
    case Space::DeviceWhite:
        return 1;
    case Space::DeviceCMYK:
        return 4;
    }
    return 0;
}

Color::RGBA Color::rgba() const
{
    const auto& c = m_components;
    const double a = painted(m_alpha);
    switch (componentCount()) {
    case 3:
        return {painted(c[0]), painted(c[1]), painted(c[2]), a};
    case 1:
        return {painted(c[0]), painted(c[0]), painted(c[0]), a};
    default: {
        const double light = 1 - painted(c[3]);
        return {(1 - painted(c[0])) * light, (1 - painted(c[1])) * light, (1 - painted(c[2])) * light, a};
    }
    }
}

Pixel Color::pixel() const
{
    const RGBA c = rgba();
    return {sample(c.a), sample(c.r * c.a), sample(c.g * c.a), sample(c.b * c.a)};
}

} // namespace wallgrid
