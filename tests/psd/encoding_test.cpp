// SPDX-License-Identifier: MIT
#include "psd/append_value.h"
#include "psd/hex.h"
#include "psd/icc_profile.h"
#include "psd/packed_bits.h"
#include "psd/pascal_string.h"

#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <stdexcept>

using namespace wallgrid;
using test::hex;
using test::written;

namespace {

ByteBuffer counting(std::size_t count)
{
    ByteBuffer buffer(count);
    std::iota(buffer.begin(), buffer.end(), std::uint8_t{0});
    return buffer;
}

ByteBuffer repeated(std::size_t count, std::uint8_t value)
{
    return ByteBuffer(count, value);
}

ByteBuffer operator+(ByteBuffer a, const ByteBuffer& b)
{
    append(a, b);
    return a;
}

std::string packed(const ByteBuffer& samples)
{
    return hex(kpPackedBitsForRange(samples, {0, samples.size()}, 1));
}

} // namespace

TEST(Encoding, IntegersAreBigEndianAndCut)
{
    const struct {
        std::int64_t value;
        std::int32_t length;
        const char* bytes;
    } cases[] = {
        {8, 2, "00 08"},     {0, 6, "00 00 00 00 00 00"},
        {65536, 2, "00 00"}, {-30, 4, "FF FF FF E2"},
        {300, 1, "2C"},      {1005, 2, "03 ED"},
        {-1, 2, "FF FF"},    {0x0102030405060708, 8, "01 02 03 04 05 06 07 08"},
        {7, 0, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(written([&](ByteBuffer& b) { kpAppendValue(b, c.value, c.length); }), c.bytes) << c.value;
    ByteBuffer buffer;
    EXPECT_THROW(kpAppendValue(buffer, 1, 9), std::invalid_argument);
    EXPECT_THROW(kpAppendValue(buffer, 1, -1), std::invalid_argument);
    kpAppendUTF8String(buffer, "hue ", 4);
    EXPECT_EQ(hex(buffer), "68 75 65 20");
}

TEST(Encoding, ColoursTakeTenBytesWithoutAlpha)
{
    const auto color = [](const ColorRef& c) { return written([&](ByteBuffer& b) { kpAppendCGColorRef(b, c, 10); }); };
    EXPECT_EQ(color(Color::deviceRGB(1, 0.5, 0, 0.3)), "00 00 FF FF 7F FF 00 00 00 00");
    EXPECT_EQ(color(Color::deviceRGB(7, -1, std::numeric_limits<double>::quiet_NaN())).substr(0, 17),
              "00 00 FF FF 00 00");
    EXPECT_THROW(color(Color::calibratedWhite(1)), std::invalid_argument);
    EXPECT_THROW(color(nullptr), std::invalid_argument);
}

TEST(Encoding, NamesArePaddedByTheirUtf16Length)
{
    const struct {
        std::u16string text;
        std::int32_t length;
        std::string bytes;
    } cases[] = {
        {u"", 0, ""},
        {u"abc ", 4, "61 62 63 20"},
        {u"abcd ", 8, "61 62 63 64 20 00 00 00"},
        {u"é", 4, "C3 A9 00 00 00"},
        {u"😀", 4, "F0 9F 98 80 00 00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(kpPascalStringLengthPaddedTo(c.text, 4), c.length);
        const std::string bytes = kpPascalStringPaddedTo(c.text, 4);
        EXPECT_EQ(hex({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}), c.bytes);
    }
    EXPECT_EQ(kpPascalStringPaddedTo(u"a", 6, u"xyz"), "axyzxy");
    EXPECT_THROW(kpPascalStringLengthPaddedTo(u"a", 0), std::invalid_argument);
    EXPECT_THROW(kpPascalStringPaddedTo(u"a", 4, u""), std::invalid_argument);
}

TEST(Encoding, PackBitsSendsRunsOfThreeTo127)
{
    const auto literal128 = "7F " + hex(counting(128));
    const struct {
        ByteBuffer samples;
        std::string packed;
    } cases[] = {
        {test::bytes("01 02 03"), "02 01 02 03"},
        {test::bytes("01 02 02 02 03"), "00 01 FE 02 00 03"},
        {test::bytes("05 05"), "01 05 05"},
        {test::bytes("01 02 03 03"), "03 01 02 03 03"},
        {test::bytes("09"), "00 09"},
        {repeated(5, 0xAA), "FC AA"},
        {repeated(200, 0), "82 00 B8 00"},
        {repeated(300, 0xFF), "82 FF 82 FF D3 FF"},
        {repeated(128, 0x80), "82 80 00 80"},
        {repeated(129, 0x80), "82 80 01 80 80"},
        {test::bytes("01 02") + repeated(130, 3), "01 01 02 82 03 FE 03"},
        {counting(128) + repeated(3, 5), literal128 + " FE 05"},
        {counting(129), literal128 + " 00 80"},
        {counting(130), literal128 + " 01 80 81"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(packed(c.samples), c.packed);
}

TEST(Encoding, PackBitsTakesEveryFewBytesOfARange)
{
    const ByteBuffer pixels = test::bytes("FF 00 00 FF FF 00 00 FF FF 00 00 FF");
    const auto pack = [&](ByteRange range, std::int32_t skip) {
        return hex(kpPackedBitsForRange(pixels, range, skip));
    };
    EXPECT_EQ(pack({0, 12}, 4), "FE FF");
    EXPECT_EQ(pack({1, 12}, 4), "FE 00"); // the range ends past the buffer, its last sample does not
    EXPECT_EQ(pack({3, 12}, 4), "FE FF");
    EXPECT_EQ(pack({2, 3}, 7), "00 00");
    EXPECT_EQ(pack({0, 12}, 5), "02 FF 00 00");
    EXPECT_THROW(pack({4, 12}, 4), std::out_of_range);
    EXPECT_THROW(pack({12, 1}, 1), std::out_of_range);
    EXPECT_THROW(pack({0, 13}, 1), std::out_of_range);
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
    EXPECT_THROW(kpPackedBitsDescription(test::bytes("02 01 02")), std::out_of_range);
}

TEST(Encoding, ProfilesHaveEvenLengths)
{
    for (const char* name : {"GenericRGB", "sRGB", "AdobeRGB1998"}) {
        EXPECT_EQ(hex(iccProfile(name).subspan(36, 4)), "61 63 73 70") << name; // "acsp"
        EXPECT_EQ(iccProfile(name).size() % 2, 0U) << name;
    }
    EXPECT_TRUE(iccProfile("sRGB.icc").empty());
}
