// SPDX-License-Identifier: MIT
//
// Bytes that say which part of the PSD writer to call and with what. Wrong arguments may throw what the headers name
// and nothing else; packed samples are what packing them the plain way gives; each field has its length.
#include "fuzz/fuzz_target.h"
#include "plain_packed_bits.h"
#include "psd/fields/pascal_string.h"
#include "psd/fields/record_fields.h"
#include "psd/kp_psd_writer.h"
#include "psd/packbits/packed_bits.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <stdexcept>

using namespace wallgrid;

namespace {

/// Takes arguments off the front of the input; what is missing is 0.
class Arguments {
public:
    Arguments(const std::uint8_t* data, std::size_t size)
        : m_rest(data, size)
    {
    }

    template <class T>
    T take()
    {
        T value{};
        const std::size_t size = std::min(sizeof value, m_rest.size());
        if (size > 0)
            std::memcpy(&value, m_rest.data(), size);
        m_rest = m_rest.subspan(size);
        return value;
    }
    bool flag() { return take<std::uint8_t>() % 2 != 0; }
    std::u16string text()
    {
        std::u16string text(std::min<std::size_t>(take<std::uint16_t>() % 600, m_rest.size() / 2), u'\0');
        for (char16_t& unit : text)
            unit = take<char16_t>();
        return text;
    }
    std::span<const std::uint8_t> rest() const { return m_rest; }

private:
    std::span<const std::uint8_t> m_rest;
};

void packBits(Arguments arguments)
{
    const auto location = arguments.take<std::uint16_t>();
    const auto length = arguments.take<std::uint16_t>();
    const auto skip = arguments.take<std::int8_t>();
    const auto bytes = arguments.rest();
    const auto packed = kpPackedBitsForRange(bytes, {location, length}, skip);
    std::vector<std::uint8_t> plain;
    packPlainly(bytes, location, length, static_cast<std::size_t>(skip), plain);
    FUZZ_CHECK(std::ranges::equal(packed, plain));
    FUZZ_CHECK(packed.size() <= largestPackedSize(bytes.size()));
    FUZZ_CHECK(!kpPackedBitsDescription(packed).empty());
}

void describePackedBits(Arguments arguments)
{
    kpPackedBitsDescription(arguments.rest());
}

void pascalStrings(Arguments arguments)
{
    const auto padding = arguments.take<std::int16_t>();
    const std::u16string filler = arguments.text();
    const std::u16string text = arguments.text();
    FUZZ_CHECK(kpPascalStringLengthPaddedTo(text, padding) % padding == 0);
    const auto length = static_cast<std::size_t>(kpPascalStringLengthPaddedTo(text, padding));
    FUZZ_CHECK(kpPascalStringPaddedTo(text, padding).size() >= length);
    kpPascalStringPaddedTo(text, padding, filler);
}

void fields(Arguments arguments)
{
    ByteBuffer buffer;
    const auto length = arguments.take<std::int8_t>();
    kpAppendValue(buffer, arguments.take<std::int64_t>(), length);
    FUZZ_CHECK(buffer.size() == static_cast<std::size_t>(length));
    const auto key = arguments.rest();
    appendBlendMode(buffer, {reinterpret_cast<const char*>(key.data()), std::min<std::size_t>(key.size(), 5)});
    FUZZ_CHECK(buffer.size() == static_cast<std::size_t>(length) + 8);
    const auto r = arguments.take<double>();
    const auto g = arguments.take<double>();
    kpAppendCGColorRef(buffer, arguments.flag() ? Color::deviceRGB(r, g, 0.5) : Color::calibratedRGB(r, g, 1), 10);
    FUZZ_CHECK(buffer.size() == static_cast<std::size_t>(length) + 18);
}

/// Offsets of a few pixels, and any others.
double offset(Arguments& arguments)
{
    return arguments.flag() ? arguments.take<double>() : arguments.take<std::int8_t>() / 2.0;
}

void document(Arguments arguments)
{
    const auto writer = KPPSDWriter::initWithDocumentSize(
        {double(arguments.take<std::uint8_t>() % 40), double(arguments.take<std::uint8_t>() % 40)},
        arguments.take<float>(), arguments.take<std::int32_t>(), arguments.flag(), {});
    writer->setColorProfile(arguments.take<std::int8_t>());
    for (int i = arguments.take<std::uint8_t>() % 6; i > 0; --i) {
        const BitmapRef image =
            Bitmap::create(arguments.take<std::uint8_t>() % 50, arguments.take<std::uint8_t>() % 50);
        const auto fill = arguments.take<std::uint8_t>();
        for (int y = 0; image && y < image->height(); ++y)
            std::ranges::fill(image->row(y), Pixel{255, fill, fill, fill});
        const StringRef name = makeString(arguments.text());
        const auto opacity = arguments.take<float>();
        if (arguments.flag())
            writer->openGroupLayerWithName(name, opacity, arguments.flag());
        const Point place{offset(arguments), offset(arguments)};
        const auto layer = writer->addLayerWithCGImage(image, name, opacity, place);
        layer->setShouldFlipLayerData(arguments.flag());
        layer->setShouldUnpremultiplyLayerData(arguments.flag());
        if (arguments.flag())
            writer->closeCurrentGroupLayer();
    }
    KPPSDError error;
    const ByteBuffer file = writer->createPSDDataWithError(&error);
    FUZZ_CHECK(file.empty() == bool(error));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    constexpr void (*kParts[])(Arguments) = {packBits, describePackedBits, pascalStrings, fields, document};
    try {
        kParts[data[0] % std::size(kParts)]({data + 1, size - 1});
    } catch (const std::invalid_argument&) {
    } catch (const std::out_of_range&) {
    }
    return 0;
}
