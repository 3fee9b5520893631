// SPDX-License-Identifier: MIT
#include "hex.h"
#include "psd/fields/append_value.h"
#include "psd/fields/pascal_string.h"
#include "psd/packbits/packed_bits.h"

#include <array>
#include <gtest/gtest.h>
#include <numeric>
#include <stdexcept>

using namespace wallgrid;

TEST(Encoding, NamesArePaddedByTheirUtf16Length)
{
    EXPECT_EQ(kpPascalStringLengthPaddedTo(u"😀", 4), 4);
    EXPECT_EQ(kpPascalStringPaddedTo(u"😀", 4), std::string("😀\0\0", 6));
    EXPECT_EQ(kpPascalStringPaddedTo(u"a", 6, u"xyz"), "axyzxy");
}

TEST(Encoding, PackedStreamsAreDescribed)
{
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("02 01 02 03 FC AA")),
              "Printing 3 literal bytes. Printing 170 5 times. Total: 8 bytes decoded.");
    EXPECT_THROW(kpPackedBitsDescription(test::bytes("FE")), std::out_of_range);
    std::array<std::uint8_t, 200> different;
    std::iota(different.begin(), different.end(), std::uint8_t(0));
    different[64] = different[65] = 63; // across the border of what is compared at a time
    EXPECT_EQ(kpPackedBitsDescription(kpPackedBitsForRange(different, {0, 200}, 1)),
              "Printing 63 literal bytes. Printing 63 3 times. Printing 128 literal bytes. Printing 6 literal bytes. "
              "Total: 200 bytes decoded.");
    EXPECT_THROW(kpPackedBitsForRange(different, {1, 200}, 1), std::out_of_range);
    ByteBuffer buffer;
    EXPECT_THROW(kpAppendCGColorRef(buffer, Color::whiteColor(), 10), std::invalid_argument);
}
