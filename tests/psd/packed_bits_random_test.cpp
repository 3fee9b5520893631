// SPDX-License-Identifier: MIT
#include "base/growing_file.h"
#include "plain_packed_bits.h"
#include "psd/packbits/packed_rows.h"
#include "psd/packbits/repeats.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace wallgrid {
namespace {

class Random {
public:
    /// 0 to `below` - 1.
    std::size_t operator()(std::size_t below) { return m_engine() % below; }
    std::size_t among(std::initializer_list<std::size_t> values) { return values.begin()[(*this)(values.size())]; }

private:
    std::mt19937 m_engine{20261123};
};

/// Runs of few or many whole pixels, of so few values that pixels share samples and channels have runs of their own.
std::vector<Pixel> pixelsWithRuns(Random& random, std::size_t count)
{
    std::vector<Pixel> pixels;
    const std::size_t longest = random.among({1, 4, 20, 300, 2000});
    const std::array<std::size_t, 3> values{random.among({1, 2, 256}), random.among({1, 2, 256}), random.among({1, 2})};
    const auto sample = [&](std::size_t i) { return static_cast<std::uint8_t>(random(values[i])); };
    while (pixels.size() < count)
        pixels.insert(pixels.end(), 1 + random(longest), {sample(0), sample(1), sample(1), sample(2)});
    pixels.resize(count);
    return pixels;
}

// Rows of fill above and below, margins, and rows that repeat.
TEST(PackedRows, AreThoseOfThePlainEncoderWithEachKindOfVectors)
{
    constexpr std::array kChannels{&Pixel::r, &Pixel::g, &Pixel::b, &Pixel::a};
    Random random;
    PackedRows rows;
    for (std::size_t round = 0; round < 300 * vectorKinds(); ++round) {
        useVectors(round % vectorKinds());
        SCOPED_TRACE(round);
        const std::size_t count = random.among({0, 1, 2, 3, 63, 64, 65, 127, 128, 129, 256, 1 + random(2000)});
        const PackedRows::Margins margins{static_cast<std::uint8_t>(random.among({0, 255})), random(300), random(2)};
        const std::size_t channels = random.among({3, 4});
        std::array<std::vector<std::uint8_t>, PackedRows::kMostChannels> expected, lengths;
        const auto expect = [&](std::size_t c, std::initializer_list<std::vector<std::uint8_t>> pieces) {
            const std::size_t begin = expected[c].size();
            for (const auto& piece : pieces)
                packPlainly(piece, 0, piece.size(), 1, expected[c]);
            const std::size_t length = expected[c].size() - begin;
            lengths[c].insert(lengths[c].end(), {std::uint8_t(length >> 8), std::uint8_t(length)});
        };
        const auto fill = [&](std::size_t samples) { return std::vector<std::uint8_t>(samples, margins.fill); };
        const auto addFilledRows = [&] {
            const std::size_t times = random.among({0, 1, 2, random(100)});
            rows.addFilledRows(count, times);
            for (std::size_t i = 0; i < channels * times; ++i)
                expect(i / times, {fill(count)});
        };
        rows.start(static_cast<int>(channels), 8, count, margins);
        addFilledRows();
        std::vector<Pixel> above;
        for (std::size_t y = 0; y < 8; ++y) {
            std::vector<Pixel> row = y > 0 && random(2) == 0 ? above : pixelsWithRuns(random, count);
            if (count > 0 && random(4) == 0)
                row.back().b ^= 1;
            rows.addRow(row, y > 0 ? above.data() : nullptr);
            for (std::size_t c = 0; c < channels; ++c) {
                std::vector<std::uint8_t> samples;
                for (const Pixel& pixel : row)
                    samples.push_back(pixel.*kChannels[c]);
                expect(c, {fill(margins.left), samples, fill(margins.right)});
            }
            above = row;
        }
        addFilledRows();
        for (std::size_t c = 0; c < channels; ++c) {
            GrowingFile table, data;
            rows.appendLengths(static_cast<int>(c), table);
            rows.appendData(static_cast<int>(c), data);
            ASSERT_TRUE(std::ranges::equal(table.end(), lengths[c])) << c;
            ASSERT_TRUE(std::ranges::equal(data.end(), expected[c])) << c;
        }
    }
    useVectors(0);
}

} // namespace
} // namespace wallgrid
