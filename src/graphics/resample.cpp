// SPDX-License-Identifier: MIT
#include "graphics/resample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace wallgrid {

namespace {

constexpr std::size_t kSamples = sizeof(Pixel);
/// Single precision adds up this many samples in each direction and stays within a thirtieth of a level. What shrinks
/// by more is added up in double precision, which takes longer.
constexpr double kMostInSinglePrecision = 1024;
/// Source columns that are mixed at a time, so that a very wide picture takes no more memory than others.
constexpr int kStripWidth = 1 << 16;

/// What one pixel of the scaled picture takes from the source, along one direction.
struct Taps {
    int first; ///< source pixel
    int count;
    float front;   ///< weight of the first one
    float between; ///< of each that is neither the first nor the last
    float back;    ///< of the last one, unless it is the first

    int end() const { return first + count; }
    float weight(int k) const { return k == 0 ? front : k == count - 1 ? back : between; }
};

using Axis = std::vector<Taps>;

/// The pixels `first` to `first` + `count` of a direction that is scaled from `from` pixels to `to`, behind `hidden`
/// pixels of it.
Axis makeAxis(int from, double to, double hidden, std::int64_t first, std::int64_t count)
{
    Axis axis;
    axis.reserve(static_cast<std::size_t>(count));
    const double step = from / to;
    for (std::int64_t i = first; i < first + count; ++i) {
        const double start = static_cast<double>(i) + hidden;
        if (step > 1) {
            const double left = std::clamp(start * step, 0.0, from - 1.0);
            const double right = std::clamp((start + 1) * step, left, static_cast<double>(from));
            const int pixel = static_cast<int>(left);
            const int end = std::max(static_cast<int>(std::ceil(right)), pixel + 1);
            const auto share = [&](double a, double b) { return static_cast<float>((b - a) / (right - left)); };
            axis.push_back({pixel, end - pixel, share(left, std::min(right, pixel + 1.0)), share(0, 1),
                            share(std::max(left, end - 1.0), right)});
        } else {
            const double center = std::clamp((start + 0.5) * step - 0.5, 0.0, from - 1.0);
            const int pixel = static_cast<int>(center);
            const double share = center - pixel;
            axis.push_back({pixel, share > 0 ? 2 : 1, static_cast<float>(1 - share), 0, static_cast<float>(share)});
        }
    }
    return axis;
}

/// Mixes rows of the source into one row of samples, from column `begin` on.
template <class Sum>
void mixRows(const Bitmap& source, const Taps& rows, int begin, std::vector<Sum>& mixed)
{
    std::fill(mixed.begin(), mixed.end(), Sum{0});
    for (int k = 0; k < rows.count; ++k) {
        const Sum weight = rows.weight(k);
        const auto* const samples = reinterpret_cast<const std::uint8_t*>(source.row(rows.first + k).data() + begin);
        for (std::size_t i = 0; i < mixed.size(); ++i)
            mixed[i] += weight * static_cast<Sum>(samples[i]);
    }
}

template <class Sum>
using PixelSum = std::array<Sum, kSamples>;

/// What one pixel takes from such a row, added to the sum so far.
template <class Sum>
PixelSum<Sum> withColumns(PixelSum<Sum> sum, const std::vector<Sum>& mixed, const Taps& columns, int begin)
{
    const int end = begin + static_cast<int>(mixed.size() / kSamples);
    for (int column = std::max(columns.first, begin); column < std::min(columns.end(), end); ++column) {
        const Sum weight = columns.weight(column - columns.first);
        const Sum* const samples = mixed.data() + static_cast<std::size_t>(column - begin) * kSamples;
        for (std::size_t c = 0; c < kSamples; ++c)
            sum[c] += weight * samples[c];
    }
    return sum;
}

template <class Sum>
void mix(const Bitmap& source, const Axis& columns, const Axis& rows, Bitmap& result)
{
    std::vector<Sum> mixed;
    std::vector<PixelSum<Sum>> sums(columns.size());
    for (int y = 0; y < result.height(); ++y) {
        constexpr Sum kToNearest = 0.5F;
        std::fill(sums.begin(), sums.end(), PixelSum<Sum>{kToNearest, kToNearest, kToNearest, kToNearest});
        std::size_t first = 0;
        for (int begin = columns.front().first; begin < columns.back().end(); begin += kStripWidth) {
            const int width = std::min(columns.back().end() - begin, kStripWidth);
            mixed.resize(static_cast<std::size_t>(width) * kSamples);
            mixRows(source, rows[static_cast<std::size_t>(y)], begin, mixed);
            while (columns[first].end() <= begin)
                ++first;
            for (std::size_t x = first; x < columns.size() && columns[x].first < begin + width; ++x)
                sums[x] = withColumns(sums[x], mixed, columns[x], begin);
        }
        std::transform(sums.begin(), sums.end(), result.row(y).begin(), [](const PixelSum<Sum>& sum) {
            return Pixel{static_cast<std::uint8_t>(sum[0]), static_cast<std::uint8_t>(sum[1]),
                         static_cast<std::uint8_t>(sum[2]), static_cast<std::uint8_t>(sum[3])};
        });
    }
}

} // namespace

BitmapRef resample(const Bitmap& source, Size size, const PixelRect& region, Point hidden)
{
    const BitmapRef result = Bitmap::create(region.width, region.height, Bitmap::Contents::Undefined);
    if (!result)
        return nullptr;
    const Axis columns = makeAxis(source.width(), size.width, hidden.x, region.x, region.width);
    // Of the uppermost row, what is missing lies above the picture.
    const double missing = std::ceil(size.height) - size.height;
    const Axis rows = makeAxis(source.height(), size.height, hidden.y - missing, region.y, region.height);
    const bool strong = std::max(source.width() / size.width, source.height() / size.height) > kMostInSinglePrecision;
    (strong ? mix<double> : mix<float>)(source, columns, rows, *result);
    return result;
}

} // namespace wallgrid
