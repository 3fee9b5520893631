// SPDX-License-Identifier: MIT
#include "hex.h"
#include "psd/fields/pascal_string.h"
#include "psd/packbits/packed_bits.h"

#include <gtest/gtest.h>
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
    EXPECT_EQ(kpPackedBitsDescription(test::bytes("FE 07 02 01")),
              "Printing 7 3 times. Printing 3 literal bytes. Total: 6 bytes decoded.");
}
