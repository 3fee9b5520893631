// SPDX-License-Identifier: MIT
#include "graphics/blend.h"
#include "picture.h"

#include <vector>

using namespace wallgrid;

namespace {

/// x × y / 255 as a fraction, rounded to nearest; no tie can occur, because 255 is odd.
int product(int x, int y)
{
    return (2 * x * y + 255) / 510;
}

Pixel reference(Pixel s, Pixel d, bool atop = false)
{
    const auto mixed = [&](int from, int to) {
        return static_cast<std::uint8_t>(std::min(255, (atop ? product(from, d.a) : from) + product(to, 255 - s.a)));
    };
    return {atop ? d.a : mixed(s.a, d.a), mixed(s.r, d.r), mixed(s.g, d.g), mixed(s.b, d.b)};
}

} // namespace

TEST(Blend, IsExactForEveryPairOfSamplesAtEveryWidthAndOffset)
{
    for (const bool atop : {false, true}) {
        const auto operation = atop ? blendAtop : blendOver;
        // Each alpha of the source over each ground, the colours strewn below their alphas, some above.
        std::vector<Pixel> source, ground, expected;
        for (const bool opaque : {false, true}) { // ground, in blocks
            for (int i = 0; i < 256 * 256; ++i) {
                const int s = i / 256, d = opaque ? 255 : i % 256, step = i % 256;
                const auto part = [](int of, int n) { return static_cast<std::uint8_t>(of * (n % 8) / 7); };
                source.push_back({part(s, 7), part(s, 7), part(s, step), part(255 - s, step / 8)});
                ground.push_back({part(d, 7), part(d, 7), part(d, s), part(d, s / 8)});
            }
        }
        for (std::size_t i = 0; i < source.size(); ++i)
            expected.push_back(reference(source[i], ground[i], atop));
        std::vector<Pixel> blended = ground;
        operation(blended.data(), source.data(), source.size());
        EXPECT_EQ(blended, expected) << atop;

        for (const std::size_t width : {0U, 1U, 7U, 15U, 16U, 17U, 31U, 32U, 33U, 64U, 1000U}) {
            for (std::size_t offset = 1000; offset < 1004; ++offset) {
                std::vector<Pixel> run(ground.begin(), ground.begin() + 3000), expectedRun = run;
                std::copy_n(expected.data() + offset, width, expectedRun.data() + offset);
                operation(run.data() + offset, source.data() + offset, width);
                ASSERT_EQ(run, expectedRun) << width << " pixels at " << offset;
            }
        }
    }
}
