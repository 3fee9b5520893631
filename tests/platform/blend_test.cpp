// SPDX-License-Identifier: MIT
#include "picture.h"
#include "platform/blend.h"

#include <vector>

using namespace wallgrid;
using Operation = void (*)(Pixel*, const Pixel*, std::size_t);

namespace {

/// x × y / 255 as a fraction, rounded to nearest; no tie can occur, because 255 is odd.
int product(int x, int y)
{
    return (2 * x * y + 255) / 510;
}

int sample(int source, int destination, Pixel s, Pixel d, bool atop)
{
    const int shown = atop ? product(source, d.a) : source;
    return std::min(255, shown + product(destination, 255 - s.a));
}

Pixel reference(Pixel s, Pixel d, bool atop)
{
    const auto mixed = [&](int from, int to) { return static_cast<std::uint8_t>(sample(from, to, s, d, atop)); };
    return {atop ? d.a : mixed(s.a, d.a), mixed(s.r, d.r), mixed(s.g, d.g), mixed(s.b, d.b)};
}

} // namespace

class Blend : public testing::TestWithParam<bool> {};

TEST_P(Blend, IsExactForEveryPairOfSamplesAtEveryWidthAndOffset)
{
    const bool atop = GetParam();
    const Operation operation = atop ? blendAtop : blendOver;
    // Each alpha of the source over each ground, the colours strewn below their alphas and one above it.
    std::vector<Pixel> source, ground, expected;
    for (int s = 0; s < 256; ++s) {
        for (int d = 0; d < 256; ++d) {
            const auto part = [](int of, int step) { return static_cast<std::uint8_t>(of * (step % 8) / 7); };
            const auto sa = static_cast<std::uint8_t>(s), da = static_cast<std::uint8_t>(d);
            source.push_back({sa, sa, part(s, d), part(s, d / 8)});
            ground.push_back({da, da, part(d, s), part(d, s / 8)});
        }
    }
    source.push_back({10, 250, 0, 255});
    ground.push_back({200, 255, 255, 100});
    for (std::size_t i = 0; i < source.size(); ++i)
        expected.push_back(reference(source[i], ground[i], atop));
    EXPECT_EQ(expected.back().r, 255);
    std::vector<Pixel> blended = ground;
    operation(blended.data(), source.data(), source.size());
    EXPECT_EQ(blended, expected);

    for (const std::size_t width : {0U, 1U, 7U, 15U, 16U, 17U, 31U, 32U, 33U, 64U, 1000U}) {
        for (std::ptrdiff_t offset = 0; offset < 4; ++offset) {
            // From the end, where the pixels vary most.
            const auto begin = std::ssize(ground) - 1010 + offset;
            const std::vector<Pixel> shifted(source.end() - 1010 + offset, source.end());
            std::vector<Pixel> run = ground, expectedRun = ground;
            std::copy_n(expected.begin() + begin, width, expectedRun.begin() + begin);
            operation(run.data() + begin, shifted.data(), width);
            ASSERT_EQ(run, expectedRun) << width << " pixels at " << offset;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, Blend, testing::Bool(), [](const auto& test) { return test.param ? "Atop" : "Over"; });

TEST(BlendColor, ScalesAColourByItsCoverageFirst)
{
    const BitmapRef random = test::randomPicture(256, 1, 9);
    const std::vector<Pixel> ground(random->pixels(), random->pixels() + 256);
    for (const Pixel color : {Pixel{200, 200, 100, 3}, Pixel{255, 1, 2, 3}, Pixel{1, 1, 0, 1}, Pixel{}}) {
        std::vector<Pixel> expected, blended = ground;
        std::vector<std::uint8_t> coverage;
        for (int i = 0; i < 256; ++i) {
            const auto part = [&](int whole) { return static_cast<std::uint8_t>(product(whole, i)); };
            coverage.push_back(static_cast<std::uint8_t>(i));
            expected.push_back(reference({part(color.a), part(color.r), part(color.g), part(color.b)},
                                         ground[static_cast<std::size_t>(i)], false));
        }
        blendCoverage(blended.data(), color, coverage.data(), coverage.size());
        EXPECT_EQ(blended, expected);

        for (const std::size_t width : {0U, 1U, 3U, 4U, 5U, 33U}) {
            expected = blended = ground;
            for (std::size_t i = 0; i < width; ++i)
                expected[i] = reference(color, ground[i], false);
            blendColor(blended.data(), color, width);
            EXPECT_EQ(blended, expected) << width << " pixels without coverage";
        }
    }
}
