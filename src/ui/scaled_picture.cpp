// SPDX-License-Identifier: MIT
#include "ui/scaled_picture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace wallgrid {

namespace {

/// Where the samples of a target pixel lie along one side of the bitmap: `phases` positions for each target pixel, in
/// order, each in the middle of its share.
std::vector<std::int32_t> samplePositions(std::int64_t source, std::int64_t target, std::int64_t phases)
{
    std::vector<std::int32_t> positions;
    positions.reserve(static_cast<std::size_t>(target * phases));
    for (std::int64_t phase = 0; phase < target * phases; ++phase)
        positions.push_back(static_cast<std::int32_t>((2 * phase + 1) * source / (2 * phases * target)));
    return positions;
}

struct Sum {
    std::uint32_t a = 0;
    std::uint32_t r = 0;
    std::uint32_t g = 0;
    std::uint32_t b = 0;
    std::uint32_t strongest = 0;

    void add(Pixel pixel)
    {
        a += pixel.a;
        r += pixel.r;
        g += pixel.g;
        b += pixel.b;
        strongest = std::max<std::uint32_t>(strongest, pixel.a);
    }

    /// The colour, premultiplied, divided by a divisor.
    QRgb dividedBy(std::uint32_t divisor, std::uint32_t alpha, std::uint32_t factor = 1) const
    {
        const auto share = [&](std::uint32_t sum) { return std::min(alpha, (sum * factor + divisor / 2) / divisor); };
        return alpha << 24 | share(r) << 16 | share(g) << 8 | share(b);
    }

    QRgb mean(std::uint32_t samples) const { return dividedBy(samples, (a + samples / 2) / samples); }
    QRgb atStrongest() const { return a == 0 ? 0 : dividedBy(a, strongest, strongest); }
};

} // namespace

QImage scaledPicture(const Bitmap& bitmap, QSize target, Coverage coverage)
{
    QImage picture(target, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return picture;
    const int reduction = std::max(bitmap.width() / target.width(), bitmap.height() / target.height());
    const int side = reduction > 16 ? 8 : 4;
    const int samples = side * side;
    const auto columns = samplePositions(bitmap.width(), target.width(), samples);
    const auto rows = samplePositions(bitmap.height(), target.height(), samples);

    // Sample k lies in row phase k = side × j + i and in column phase side × i + j.
    std::vector<std::size_t> columnPhase(static_cast<std::size_t>(samples));
    for (int k = 0; k < samples; ++k)
        columnPhase[static_cast<std::size_t>(k)] = static_cast<std::size_t>(side * (k % side) + k / side);

    std::vector<const Pixel*> sampledRows(static_cast<std::size_t>(samples));
    for (int y = 0; y < target.height(); ++y) {
        for (std::size_t k = 0; k < sampledRows.size(); ++k)
            sampledRows[k] = bitmap.row(rows[static_cast<std::size_t>(y) * sampledRows.size() + k]).data();
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const std::int32_t* column = columns.data();
        for (int x = 0; x < target.width(); ++x, column += samples) {
            Sum sum;
            for (std::size_t k = 0; k < sampledRows.size(); ++k)
                sum.add(sampledRows[k][column[columnPhase[k]]]);
            line[x] = coverage == Coverage::Mean ? sum.mean(static_cast<std::uint32_t>(samples)) : sum.atStrongest();
        }
    }
    return picture;
}

QSize fittedSize(Size size, QSize room)
{
    if (!(size.width > 0) || !(size.height > 0) || room.isEmpty())
        return {};
    const double scale = std::min({1.0, room.width() / size.width, room.height() / size.height});
    const auto side = [scale](double length, int limit) {
        return std::clamp(static_cast<int>(std::lround(std::min<double>(length * scale, limit))), 1, limit);
    };
    return {side(size.width, room.width()), side(size.height, room.height())};
}

void paintCheckerboard(QPainter& painter, const QRect& area, int squareSize)
{
    // The same greys in every palette: what is judged in front of them must not look different elsewhere.
    static constexpr QColor kLight{0x66, 0x66, 0x66};
    static constexpr QColor kDark{0x55, 0x55, 0x55};
    QPixmap tile(2 * squareSize, 2 * squareSize);
    tile.fill(kDark);
    QPainter tilePainter(&tile);
    tilePainter.fillRect(0, 0, squareSize, squareSize, kLight);
    tilePainter.fillRect(squareSize, squareSize, squareSize, squareSize, kLight);
    tilePainter.end();
    painter.drawTiledPixmap(area, tile);
}

} // namespace wallgrid
