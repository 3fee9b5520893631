// SPDX-License-Identifier: MIT
#include "hex.h"
#include "psd/fields/append_value.h"
#include "psd/fields/pascal_string.h"
#include "psd/packbits/packed_bits.h"

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

using namespace wallgrid;
using test::hex;

TEST(Encoding, NamesArePaddedByTheirUtf16Length)
{
    EXPECT_EQ(kpPascalStringLengthPaddedTo(u"😀", 4), 4);
    EXPECT_EQ(kpPascalStringPaddedTo(u"😀", 4), std::string("😀\0\0", 6));
    EXPECT_EQ(kpPascalStringPaddedTo(u"a", 6, u"xyz"), "axyzxy");
}

TEST(Encoding, RefusesWhatHasNoBytes)
{
    ByteBuffer buffer;
    EXPECT_THROW(kpAppendValue(buffer, 1, 9), std::invalid_argument);
    EXPECT_THROW(kpAppendCGColorRef(buffer, Color::calibratedWhite(1), 10), std::invalid_argument);
    EXPECT_THROW(kpPascalStringPaddedTo(u"a", 4, u""), std::invalid_argument);
    const ByteBuffer pixels = test::bytes("FF 00 00 FF FF 00 00 FF FF 00 00 FF");
    // The range ends past the buffer, its last sample does not.
    EXPECT_EQ(hex(kpPackedBitsForRange(pixels, {1, 12}, 4)), "FE 00");
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
    for (const ByteRange range : {ByteRange{4, 12}, {12, 1}, {1, kMost}})
        EXPECT_THROW(kpPackedBitsForRange(pixels, range, range.location == 4 ? 4 : 1), std::out_of_range);
    EXPECT_THROW(kpPackedBitsForRange(pixels, {0, 12}, 0), std::invalid_argument);
}

TEST(Encoding, PackedStreamsAreDescribed)
{
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("02 01 02 03 FC AA")),
              "Printing 3 literal bytes. Printing 170 5 times. Total: 8 bytes decoded.");
    EXPECT_THROW(kpPackedBitsDescription(test::bytes("FE")), std::out_of_range);
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("FE 07 02 01")),
              "Printing 7 3 times. Printing 3 literal bytes. Total: 6 bytes decoded.");
}
