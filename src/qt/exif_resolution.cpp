// SPDX-License-Identifier: MIT
#include "qt/exif_resolution.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace wallgrid {

namespace {

using Bytes = std::span<const std::uint8_t>;

/// What is outside the bytes is empty.
Bytes part(Bytes bytes, std::size_t at, std::size_t length)
{
    return at <= bytes.size() && length <= bytes.size() - at ? bytes.subspan(at, length) : Bytes();
}

bool startsWith(Bytes bytes, std::initializer_list<std::uint8_t> start)
{
    return std::ranges::equal(part(bytes, 0, start.size()), start);
}

/// What follows the name of the first Exif segment before the image data.
Bytes exifData(Bytes jpeg)
{
    constexpr std::uint8_t kMarker = 0xff, kStartOfScan = 0xda, kApplication1 = 0xe1;
    if (!startsWith(jpeg, {kMarker, 0xd8}))
        return {};
    for (std::size_t at = 2; part(jpeg, at, 4).size() == 4 && jpeg[at] == kMarker;) {
        const std::uint8_t kind = jpeg[at + 1];
        if (kind == kMarker) { // fill byte
            ++at;
            continue;
        }
        const std::size_t length = std::size_t{jpeg[at + 2]} << 8 | jpeg[at + 3]; // with its own two bytes
        if (kind == kStartOfScan || length < 2)
            return {};
        const Bytes segment = part(jpeg, at + 4, length - 2);
        if (kind == kApplication1 && startsWith(segment, {'E', 'x', 'i', 'f', 0, 0}))
            return segment.subspan(6);
        at += 2 + length;
    }
    return {};
}

/// The first directory of a TIFF structure. What is not there reads as 0.
class Directory {
public:
    explicit Directory(Bytes tiff)
        : m_tiff(tiff)
        , m_bigEndian(startsWith(tiff, {'M', 'M', 0, 42}))
    {
        if (m_bigEndian || startsWith(tiff, {'I', 'I', 42, 0})) {
            m_at = number(4, 4);
            m_count = number(m_at, 2);
        }
    }

    /// The first value of a tag with values of this type, as where its bytes stand.
    std::optional<std::size_t> find(std::uint32_t tag, std::uint32_t type, std::size_t size) const
    {
        for (std::size_t i = 0; i < m_count; ++i) {
            const std::size_t entry = m_at + 2 + i * 12;
            if (number(entry, 2) == tag && number(entry + 2, 2) == type && number(entry + 4, 4) > 0)
                return size > 4 ? number(entry + 8, 4) : entry + 8;
        }
        return {};
    }

    std::uint32_t number(std::size_t at, std::size_t size) const
    {
        std::uint32_t value = 0;
        const Bytes bytes = part(m_tiff, at, size);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            value = value << 8 | bytes[m_bigEndian ? i : bytes.size() - 1 - i];
        return value;
    }

private:
    Bytes m_tiff;
    bool m_bigEndian;
    std::size_t m_at = 0;
    std::size_t m_count = 0;
};

/// 0 when there is none.
double rational(const Directory& directory, std::uint32_t tag)
{
    constexpr std::uint32_t kRational = 5;
    const auto at = directory.find(tag, kRational, 8);
    const std::uint32_t divisor = at ? directory.number(*at + 4, 4) : 0;
    return divisor == 0 ? 0 : static_cast<double>(directory.number(*at, 4)) / divisor;
}

} // namespace

std::optional<Size> exifResolution(Bytes file)
{
    constexpr std::uint32_t kXResolution = 282, kYResolution = 283, kResolutionUnit = 296, kShort = 3;
    constexpr std::uint32_t kInch = 2, kCentimetre = 3;
    const Directory directory(exifData(file));
    const auto unitAt = directory.find(kResolutionUnit, kShort, 2);
    const std::uint32_t unit = unitAt ? directory.number(*unitAt, 2) : kInch;
    const Size dots{rational(directory, kXResolution), rational(directory, kYResolution)};
    if (dots.width <= 0 || dots.height <= 0 || (unit != kInch && unit != kCentimetre))
        return {};
    const double perMetre = unit == kInch ? 1 / 0.0254 : 100;
    return Size{dots.width * perMetre, dots.height * perMetre};
}

} // namespace wallgrid
