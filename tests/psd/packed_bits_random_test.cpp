// SPDX-License-Identifier: MIT
#include "plain_packed_bits.h"
#include "psd/packed_bits.h"

#include <gtest/gtest.h>

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

// The bytes end where their memory ends, so that the address sanitizer sees a read past the last sample.
TEST(PackedBits, AreThoseOfThePlainEncoder)
{
    Random random;
    for (int round = 0; round < 20000; ++round) {
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

} // namespace
} // namespace wallgrid
