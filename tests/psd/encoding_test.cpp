// SPDX-License-Identifier: MIT
#include "hex.h"
#include "psd/append_value.h"
#include "psd/packed_bits.h"
#include "psd/pascal_string.h"

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <vector>

using namespace wallgrid;
using test::hex;
using test::written;

TEST(Encoding, IntegersAreBigEndianAndCut)
{
    ByteBuffer buffer;
    for (const auto& [value, length] : std::vector<std::pair<std::int64_t, std::int32_t>>{
             {65536, 2}, {-30, 4}, {300, 1}, {0x0102030405060708, 8}, {7, 0}})
        kpAppendValue(buffer, value, length);
    kpAppendUTF8String(buffer, "hue ", 4);
    EXPECT_EQ(hex(buffer), "00 00 FF FF FF E2 2C 01 02 03 04 05 06 07 08 68 75 65 20");
    EXPECT_THROW(kpAppendValue(buffer, 1, 9), std::invalid_argument);
    EXPECT_THROW(kpAppendValue(buffer, 1, -1), std::invalid_argument);
}

TEST(Encoding, ColoursTakeTenBytesWithoutAlpha)
{
    const auto color = [](const ColorRef& c) { return written([&](ByteBuffer& b) { kpAppendCGColorRef(b, c, 10); }); };
    EXPECT_EQ(color(Color::deviceRGB(1, 0.5, 0.2, 0.3)), "00 00 FF FF 7F FF 33 32 00 00");
    EXPECT_EQ(color(Color::deviceRGB(7, -1, std::numeric_limits<double>::quiet_NaN())).substr(0, 17),
              "00 00 FF FF 00 00");
    EXPECT_THROW(color(Color::calibratedWhite(1)), std::invalid_argument);
    EXPECT_THROW(color(nullptr), std::invalid_argument);
}

TEST(Encoding, NamesArePaddedByTheirUtf16Length)
{
    EXPECT_EQ(kpPascalStringLengthPaddedTo(u"😀", 4), 4);
    EXPECT_EQ(kpPascalStringPaddedTo(u"😀", 4), std::string("😀\0\0", 6));
    EXPECT_EQ(kpPascalStringLengthPaddedTo(u"äöü", 4), 4);
    EXPECT_EQ(kpPascalStringPaddedTo(u"a", 6, u"xyz"), "axyzxy");
    EXPECT_THROW(kpPascalStringLengthPaddedTo(u"a", 0), std::invalid_argument);
    EXPECT_THROW(kpPascalStringPaddedTo(u"a", 4, u""), std::invalid_argument);
}

TEST(Encoding, OnlyRangesInsideTheBytesArePacked)
{
    const ByteBuffer pixels = test::bytes("FF 00 00 FF FF 00 00 FF FF 00 00 FF");
    const auto pack = [&](ByteRange range, std::int32_t skip) {
        return hex(kpPackedBitsForRange(pixels, range, skip));
    };
    EXPECT_EQ(pack({1, 12}, 4), "FE 00"); // the range ends past the buffer, its last sample does not
    EXPECT_EQ(pack({0, 12}, 5), "02 FF 00 00");
    EXPECT_THROW(pack({4, 12}, 4), std::out_of_range);
    EXPECT_THROW(pack({12, 1}, 1), std::out_of_range);
    EXPECT_THROW(pack({1, std::numeric_limits<std::uint64_t>::max()}, 1), std::out_of_range);
    EXPECT_THROW(pack({0, 0}, 1), std::invalid_argument);
    EXPECT_THROW(pack({0, 12}, 0), std::invalid_argument);
}

TEST(Encoding, PackedStreamsAreDescribed)
{
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("02 01 02 03 FC AA")),
              "Printing 3 literal bytes. Printing 170 5 times. Total: 8 bytes decoded.");
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("80 01")), "Printing 1 129 times. Total: 129 bytes decoded.");
    EXPECT_EQ(kpPackedBitsDescription({}), "Total: 0 bytes decoded.");
    EXPECT_THROW(kpPackedBitsDescription(test::bytes("FE")), std::out_of_range);
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("FE 07 02 01")),
              "Printing 7 3 times. Printing 3 literal bytes. Total: 6 bytes decoded.");
}
