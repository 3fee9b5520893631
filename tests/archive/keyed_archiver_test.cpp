// SPDX-License-Identifier: MIT
#include "archive/keyed_archiver.h"

#include "hex.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(KeyedArchiver, WritesAColourAsTheRealArchiveHasIt)
{
    // A calibrated white 1, as macOS archived it.
    EXPECT_EQ(test::hex(KeyedArchiver::archivedDataWithRootObject(Color::whiteColor())),
              "62 70 6C 69 73 74 30 30 D4 01 02 03 04 05 06 15 16 58 24 76 65 72 73 69 6F 6E 58 24 6F 62 6A 65 63 74 "
              "73 59 24 61 72 63 68 69 76 65 72 54 24 74 6F 70 12 00 01 86 A0 A3 07 08 0F 55 24 6E 75 6C 6C D3 09 0A "
              "0B 0C 0D 0E 57 4E 53 57 68 69 74 65 5C 4E 53 43 6F 6C 6F 72 53 70 61 63 65 56 24 63 6C 61 73 73 42 31 "
              "00 10 03 80 02 D2 10 11 12 13 5A 24 63 6C 61 73 73 6E 61 6D 65 58 24 63 6C 61 73 73 65 73 57 4E 53 43 "
              "6F 6C 6F 72 A2 12 14 58 4E 53 4F 62 6A 65 63 74 5F 10 0F 4E 53 4B 65 79 65 64 41 72 63 68 69 76 65 72 "
              "D1 17 18 54 72 6F 6F 74 80 01 08 11 1A 23 2D 32 37 3B 41 48 50 5D 64 67 69 6B 70 7B 84 8C 8F 98 AA AD "
              "B2 00 00 00 00 00 00 01 01 00 00 00 00 00 00 00 19 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 B4");
    const ArchiveArray fives{std::int64_t{5}, std::int64_t{5}};
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(fives).size(), 245U) << "equal numbers stand once";
}
