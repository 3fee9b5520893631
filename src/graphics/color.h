// SPDX-License-Identifier: MIT
#pragma once

#include "base/archived_form.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace wallgrid {

class Color;

/// Colours are values that never change, shared by everyone who shows them. An empty reference is "no colour".
using ColorRef = std::shared_ptr<const Color>;

/// One pixel of a Bitmap: 8 bits a sample in memory order A, R, G, B, colour premultiplied by alpha.
struct Pixel {
    std::uint8_t a = 0;
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    bool operator==(const Pixel&) const = default;
};
static_assert(sizeof(Pixel) == 4);

/// A colour in its own colour space, components as doubles. 0 to 1 is the painted range; wider values are kept and
/// clamped only when they are painted.
class Color {
public:
    enum class Space {
        CalibratedRGB,
        DeviceRGB,
        CalibratedWhite,
        DeviceWhite,
        DeviceCMYK,
    };

    /// Straight (not premultiplied) components for painting and for colour controls.
    struct RGBA {
        double r = 0;
        double g = 0;
        double b = 0;
        double a = 1;
        bool operator==(const RGBA&) const = default;
    };

    Color(Space space, std::array<double, 4> components, double alpha,
          std::shared_ptr<const ArchivedForm> archivedForm = nullptr);

    static ColorRef calibratedRGB(double r, double g, double b, double alpha = 1);
    static ColorRef deviceRGB(double r, double g, double b, double alpha = 1);
    static ColorRef calibratedWhite(double white, double alpha = 1);
    static ColorRef redColor();
    static ColorRef greenColor();
    static ColorRef whiteColor();

    Space space() const { return m_space; }
    /// As many as componentCount() says count: red green blue, white, or cyan magenta yellow black.
    const std::array<double, 4>& components() const { return m_components; }
    int componentCount() const;
    double alpha() const { return m_alpha; }
    const std::shared_ptr<const ArchivedForm>& archivedForm() const { return m_archivedForm; }

    /// The colour as it is painted: clamped to 0..1. Calibrated and device components are taken as equal.
    RGBA rgba() const;
    /// rgba() in 8 bits, rounded to nearest, premultiplied.
    Pixel pixel() const;

private:
    Space m_space;
    std::array<double, 4> m_components;
    double m_alpha;
    std::shared_ptr<const ArchivedForm> m_archivedForm;
};

} // namespace wallgrid
