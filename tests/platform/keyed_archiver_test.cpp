// SPDX-License-Identifier: MIT
#include "platform/keyed_archiver.h"

#include <gtest/gtest.h>

using namespace wallgrid;

TEST(KeyedArchiver, WritesAColourAsTheRealArchiveHasIt)
{
    // A calibrated white 1, as macOS archived it.
    const std::string_view hex =
        "62706c6973743030d4010203040506151658247665727369"
        "6f6e58246f626a65637473592461726368697665725424746f70"
        "12000186a0a307080f55246e756c6cd3090a0b0c0d0e574e53576869746"
        "55c4e53436f6c6f7253706163655624636c617373"
        "42310010038002d2101112135a24636c6173736e616d655824636c6173736573574e53436f6c6f72a21214"
        "584e534f626a6563745f100f4e534b657965644172636869766572d1171854726f6f748001"
        "08111a232d32373b4148505d6467696b707b848c8f98aaadb2000000000000010100000000000000190000000000000000"
        "00000000000000b4";
    std::vector<std::uint8_t> real;
    for (std::size_t i = 0; i < hex.size(); i += 2)
        real.push_back(static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16)));
    ASSERT_EQ(real.size(), 237U);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(Color::whiteColor()), real);
}
