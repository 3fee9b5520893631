// SPDX-License-Identifier: MIT
#include "platform/keyed_archiver.h"

#include "platform/raw_plist.h"

#include <gtest/gtest.h>
#include <vector>

using namespace wallgrid;
using namespace wallgrid::test;

TEST(KeyedArchiver, WritesAColourAsTheRealArchiveHasIt)
{
    // A calibrated white 1, as macOS archived it.
    const std::string real = fromHex("62706c6973743030 d40102030405061516 582476657273696f6e 58246f626a65637473"
                                     "592461726368697665725424746f70 12000186a0 a307080f 55246e756c6c"
                                     "d3090a0b0c0d0e 574e535768697465 5c4e53436f6c6f725370616365 5624636c617373"
                                     "423100 1003 8002 d210111213 5a24636c6173736e616d65 5824636c6173736573"
                                     "574e53436f6c6f72 a21214 584e534f626a656374 5f100f4e534b65796564417263686976"
                                     "6572 d11718 54726f6f74 8001 08111a232d32373b4148505d6467696b707b848c8f98aaad"
                                     "b2 000000000000 01 01 0000000000000019 0000000000000000 00000000000000b4");
    ASSERT_EQ(real.size(), 237U);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(Color::whiteColor()),
              std::vector<std::uint8_t>(real.begin(), real.end()));
}
