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

std::vector<Pixel> pixelsOf(const BitmapRef& bitmap)
{
    return {bitmap->row(0).begin(), bitmap->row(0).end()};
}

} // namespace

class Blend : public testing::TestWithParam<bool> {
protected:
    bool atop() const { return GetParam(); }
    Operation operation() const { return atop() ? blendAtop : blendOver; }
};

TEST_P(Blend, IsExactAtEveryWidthAndOffset)
{
    for (const int width : {0, 1, 7, 15, 16, 17, 31, 32, 33, 64, 1000}) {
        for (const std::size_t offset : {0U, 1U, 2U, 3U}) {
            const auto seed = static_cast<std::uint32_t>(width) * 8 + static_cast<std::uint32_t>(offset);
            const std::vector<Pixel> source = pixelsOf(test::randomPicture(width + 8, 1, seed));
            const std::vector<Pixel> ground = pixelsOf(test::randomPicture(width + 8, 1, seed + 1'000'000));
            std::vector<Pixel> expected = ground;
            for (std::size_t i = 0; i < static_cast<std::size_t>(width); ++i)
                expected[i + offset] = reference(source[i + 3 - offset], ground[i + offset], atop());
            std::vector<Pixel> blended = ground;
            operation()(blended.data() + offset, source.data() + 3 - offset, static_cast<std::size_t>(width));
            ASSERT_EQ(blended, expected) << width << " pixels at " << offset;
        }
    }
}

TEST_P(Blend, IsExactForEveryPairOfSamples)
{
    // Each alpha of the source over each ground, the colours strewn below their alphas; whole blocks and single pixels.
    std::vector<Pixel> source, ground;
    for (int s = 0; s < 256; ++s) {
        for (int d = 0; d < 256; ++d) {
            const auto part = [](int of, int step) { return static_cast<std::uint8_t>(of * (step % 8) / 7); };
            const auto sa = static_cast<std::uint8_t>(s), da = static_cast<std::uint8_t>(d);
            source.push_back({sa, sa, part(s, d), part(s, d / 8)});
            ground.push_back({da, da, part(d, s), part(d, s / 8)});
        }
    }
    std::vector<Pixel> expected, blended = ground, single = ground;
    for (std::size_t i = 0; i < source.size(); ++i) {
        expected.push_back(reference(source[i], ground[i], atop()));
        operation()(&single[i], &source[i], 1);
    }
    operation()(blended.data(), source.data(), source.size());
    EXPECT_EQ(blended, expected);
    EXPECT_EQ(single, expected);
}

TEST_P(Blend, SaturatesColoursThatPassTheirAlpha)
{
    const std::vector<Pixel> source(20, Pixel{10, 250, 0, 255}), ground(20, Pixel{200, 255, 255, 100});
    std::vector<Pixel> blended = ground;
    operation()(blended.data(), source.data(), source.size());
    EXPECT_EQ(blended, std::vector<Pixel>(20, reference(source[0], ground[0], atop())));
    EXPECT_EQ(blended[0].r, 255);
}

INSTANTIATE_TEST_SUITE_P(, Blend, testing::Bool(), [](const auto& test) { return test.param ? "Atop" : "Over"; });

TEST(BlendColor, EqualsARunOfThatColour)
{
    for (const Pixel color : {Pixel{255, 1, 2, 3}, Pixel{128, 128, 64, 0}, Pixel{1, 1, 0, 1}, Pixel{}}) {
        for (const int width : {0, 1, 3, 4, 5, 33}) {
            const std::vector<Pixel> ground = pixelsOf(test::randomPicture(width + 1, 1, 7));
            std::vector<Pixel> expected = ground, blended = ground;
            for (int i = 0; i < width; ++i)
                expected[static_cast<std::size_t>(i)] = reference(color, ground[static_cast<std::size_t>(i)], false);
            blendColor(blended.data(), color, static_cast<std::size_t>(width));
            EXPECT_EQ(blended, expected) << width;
        }
    }
}

TEST(BlendCoverage, ScalesTheColourFirst)
{
    const Pixel color{200, 200, 100, 3};
    const std::vector<Pixel> ground = pixelsOf(test::randomPicture(256, 1, 9));
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
}
