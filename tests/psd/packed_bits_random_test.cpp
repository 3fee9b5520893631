// SPDX-License-Identifier: MIT
#include "plain_packed_bits.h"
#include "psd/growing_file.h"
#include "psd/packed_bits.h"
#include "psd/packed_rows.h"
#include "psd/repeats.h"

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

/// Runs and literals of the lengths at which packets begin, end and are cut, and of any other.
std::vector<std::uint8_t> samplesWithRuns(Random& random, std::size_t count)
{
    std::vector<std::uint8_t> samples;
    const std::size_t values = random.among({1, 2, 3, 256});
    while (samples.size() < count) {
        const bool run = random(2) == 0;
        const std::size_t length =
            run ? random.among({2, 3, 4, 61, 126, 127, 128, 129, 130, 254, 255, 256, 1 + random(700)})
                : random.among({1, 2, 3, 126, 127, 128, 129, 130, 131, 1 + random(300)});
        auto value = static_cast<std::uint8_t>(random(values));
        for (std::size_t i = 0; i < length; ++i) {
            samples.push_back(value);
            if (!run)
                value = static_cast<std::uint8_t>(value + 1 + random(255));
        }
    }
    samples.resize(count);
    return samples;
}

// The kinds of vectors, one after the other, that this processor has.
class Vectors : public testing::TestWithParam<std::size_t> {
protected:
    void SetUp() override { useVectors(GetParam()); }
    void TearDown() override { useVectors(0); }
};

INSTANTIATE_TEST_SUITE_P(PackedRows, Vectors, testing::Range(std::size_t{0}, vectorKinds()));

// The bytes end where their memory ends, so that the address sanitizer sees a read past the last sample.
TEST_P(Vectors, PackRangesAsThePlainEncoderDoes)
{
    Random random;
    for (int round = 0; round < 4000; ++round) {
        const std::size_t count = random.among({1, 2, 3, 63, 64, 65, 66, 127, 128, 129, 193, 1 + random(2000)});
        const std::size_t skip = random.among({1, 1, 2, 3, 4, 4, 5, 64});
        const std::vector<std::uint8_t> samples = samplesWithRuns(random, count);
        const std::size_t location = random(skip + 1);
        std::vector<std::uint8_t> bytes(location + (count - 1) * skip + 1);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random(256));
        for (std::size_t i = 0; i < count; ++i)
            bytes[location + i * skip] = samples[i];

        std::vector<std::uint8_t> plain;
        const std::size_t length = count * skip - random(skip);
        packPlainly(bytes, location, length, skip, plain);
        const ByteBuffer packed = kpPackedBitsForRange(bytes, {location, length}, static_cast<std::int32_t>(skip));
        ASSERT_TRUE(std::ranges::equal(packed, plain))
            << "round " << round << ", " << count << " samples, skip " << skip;
        ASSERT_LE(packed.size(), largestPackedSize(count));
    }
}

/// Runs of few or many whole pixels, of so few values that pixels share samples.
std::vector<Pixel> pixelsWithRuns(Random& random, std::size_t count)
{
    std::vector<Pixel> pixels;
    const std::size_t longest = random.among({1, 4, 20, 300, 2000});
    const std::size_t values = random.among({1, 2, 256});
    const auto sample = [&] { return static_cast<std::uint8_t>(random(values)); };
    while (pixels.size() < count)
        pixels.insert(pixels.end(), 1 + random(longest), {sample(), sample(), sample(), sample()});
    pixels.resize(count);
    return pixels;
}

// Rows of fill above and below, margins, and rows that repeat.
TEST_P(Vectors, PackRowsAsThePlainEncoderDoes)
{
    constexpr std::array kChannels{&Pixel::r, &Pixel::g, &Pixel::b, &Pixel::a};
    Random random;
    PackedRows rows;
    for (int round = 0; round < 300; ++round) {
        const std::size_t count = random.among({0, 1, 2, 3, 63, 64, 65, 66, 129, 1 + random(2000)});
        const PackedRows::Margins margins{static_cast<std::uint8_t>(random.among({0, 255})), random(300), random(2)};
        const std::size_t channels = random.among({3, 4});
        std::array<std::vector<std::uint8_t>, PackedRows::kMostChannels> expected, lengths;
        const auto expect = [&](std::size_t channel, std::initializer_list<std::vector<std::uint8_t>> pieces) {
            const std::size_t begin = expected[channel].size();
            for (const auto& piece : pieces) {
                if (!piece.empty())
                    packPlainly(piece, 0, piece.size(), 1, expected[channel]);
            }
            const std::size_t length = expected[channel].size() - begin;
            lengths[channel].push_back(static_cast<std::uint8_t>(length >> 8));
            lengths[channel].push_back(static_cast<std::uint8_t>(length));
        };
        const auto fill = [&](std::size_t samples) { return std::vector<std::uint8_t>(samples, margins.fill); };
        const auto addFilledRows = [&] {
            const std::size_t times = random.among({0, 1, 2, random(100)});
            rows.addFilledRows(count, times);
            for (std::size_t c = 0; c < channels; ++c)
                for (std::size_t k = 0; k < times; ++k)
                    expect(c, {fill(count)});
        };
        rows.start(static_cast<int>(channels), 8, count, margins);
        addFilledRows();
        std::vector<Pixel> above;
        for (std::size_t y = 0; y < 8; ++y) {
            const std::vector<Pixel> row = y > 0 && random(2) == 0 ? above : pixelsWithRuns(random, count);
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
            ASSERT_TRUE(std::ranges::equal(table.end(), lengths[c])) << "round " << round << ", channel " << c;
            ASSERT_TRUE(std::ranges::equal(data.end(), expected[c])) << "round " << round << ", channel " << c;
        }
    }
}

} // namespace
} // namespace wallgrid
