// SPDX-License-Identifier: MIT
#include "platform/resample.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace wallgrid {

namespace {

constexpr std::size_t kSamples = sizeof(Pixel);

/// What one pixel of the scaled picture takes from the source, along one direction.
struct Taps {
    int first = 0;           ///< source pixel of the first weight
    std::size_t weights = 0; ///< where its weights start in Axis::weights
    std::size_t count = 0;
};

struct Axis {
    std::vector<Taps> taps;
    std::vector<float> weights;

    int begin() const { return taps.front().first; }
    int end() const { return taps.back().first + static_cast<int>(taps.back().count); }
};

/// The pixels `first` to `first` + `count` of a direction that is scaled from `from` pixels to `to`, behind `hidden`
/// pixels of it.
Axis makeAxis(int from, double to, double hidden, std::int64_t first, std::int64_t count)
{
    Axis axis;
    axis.taps.reserve(static_cast<std::size_t>(count));
    const double step = from / to;
    const auto add = [&](int pixel, double weight) {
        axis.weights.push_back(static_cast<float>(weight));
        if (axis.taps.back().count++ == 0)
            axis.taps.back().first = pixel;
    };
    for (std::int64_t i = first; i < first + count; ++i) {
        axis.taps.push_back({0, axis.weights.size(), 0});
        const double start = static_cast<double>(i) + hidden;
        if (step > 1) {
            const double left = std::clamp(start * step, 0.0, from - 1.0);
            const double right = std::clamp((start + 1) * step, left, static_cast<double>(from));
            const int end = std::max(static_cast<int>(std::ceil(right)), static_cast<int>(left) + 1);
            for (int pixel = static_cast<int>(left); pixel < end; ++pixel)
                add(pixel, (std::min(right, pixel + 1.0) - std::max(left, double(pixel))) / (right - left));
        } else {
            const double center = std::clamp((start + 0.5) * step - 0.5, 0.0, from - 1.0);
            const int pixel = static_cast<int>(center);
            const double share = center - pixel;
            add(pixel, 1 - share);
            if (share > 0)
                add(pixel + 1, share);
        }
    }
    return axis;
}

/// Mixes source rows into one row of samples, the columns that `columns` needs.
void mixRows(const Bitmap& source, const Axis& rows, const Taps& taps, const Axis& columns, std::vector<float>& mixed)
{
    std::fill(mixed.begin(), mixed.end(), 0.0F);
    for (std::size_t k = 0; k < taps.count; ++k) {
        const float weight = rows.weights[taps.weights + k];
        const auto* const samples = reinterpret_cast<const std::uint8_t*>(
            source.row(taps.first + static_cast<int>(k)).data() + columns.begin());
        for (std::size_t i = 0; i < mixed.size(); ++i)
            mixed[i] += weight * static_cast<float>(samples[i]);
    }
}

/// Mixes the columns of such a row into pixels.
void mixColumns(const std::vector<float>& mixed, const Axis& columns, std::span<Pixel> row)
{
    for (std::size_t x = 0; x < row.size(); ++x) {
        const Taps& taps = columns.taps[x];
        const float* samples = mixed.data() + static_cast<std::size_t>(taps.first - columns.begin()) * kSamples;
        float sums[kSamples] = {0.5F, 0.5F, 0.5F, 0.5F};
        for (std::size_t k = 0; k < taps.count; ++k, samples += kSamples) {
            const float weight = columns.weights[taps.weights + k];
            for (std::size_t c = 0; c < kSamples; ++c)
                sums[c] += weight * samples[c];
        }
        row[x] = {static_cast<std::uint8_t>(sums[0]), static_cast<std::uint8_t>(sums[1]),
                  static_cast<std::uint8_t>(sums[2]), static_cast<std::uint8_t>(sums[3])};
    }
}

} // namespace

BitmapRef resample(const Bitmap& source, Size size, const PixelRect& region, Point hidden)
{
    const BitmapRef result = Bitmap::create(region.width, region.height, Bitmap::Contents::Undefined);
    if (!result)
        return nullptr;
    const Axis columns = makeAxis(source.width(), size.width, hidden.x, region.x, region.width);
    // Rows are stored from the top, and so are counted from the top: a broken last pixel is the bottom one.
    const auto rowsFromTop = static_cast<std::int64_t>(std::ceil(size.height)) - region.top();
    const Axis rows = makeAxis(source.height(), size.height, hidden.y, rowsFromTop, region.height);
    std::vector<float> mixed(static_cast<std::size_t>(columns.end() - columns.begin()) * kSamples);
    for (int y = 0; y < result->height(); ++y) {
        mixRows(source, rows, rows.taps[static_cast<std::size_t>(y)], columns, mixed);
        mixColumns(mixed, columns, result->row(y));
    }
    return result;
}

} // namespace wallgrid
