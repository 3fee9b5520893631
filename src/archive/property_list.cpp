// SPDX-License-Identifier: MIT
#include "archive/property_list.h"

#include <algorithm>
#include <limits>

namespace wallgrid {

namespace {

using Kind = PlistObject::Kind;

constexpr std::string_view kMagic = "bplist00";
constexpr std::uint64_t kTrailerSize = 32;
/// Where the trailer should be stands something else.
constexpr auto kEndIsMissing = "it ends too early";

} // namespace

PropertyList::PropertyList(Bytes bytes)
    : m_bytes(std::move(bytes))
{
}

Expected<std::shared_ptr<const PropertyList>> PropertyList::open(Bytes bytes)
{
    if (!std::equal(kMagic.begin(), kMagic.end(), bytes.begin(),
                    bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), kMagic.size()))))
        return failure("the file is not a binary property list");
    if (bytes.size() < kMagic.size() + kTrailerSize)
        return failure(kEndIsMissing);
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
        return failure("the property list is larger than 4 GiB");

    std::shared_ptr<PropertyList> list(new PropertyList(std::move(bytes)));
    if (const auto read = list->readTrailer(); !read)
        return tl::unexpected(read.error());
    if (const auto checked = list->checkObjects(); !checked)
        return tl::unexpected(checked.error());
    return list;
}

Expected<void> PropertyList::readTrailer()
{
    const std::uint64_t trailer = m_bytes.size() - kTrailerSize;
    // 0: five unused bytes and the sort version
    m_offsetWidth = byteAt(trailer + 6);
    m_referenceWidth = byteAt(trailer + 7);
    const std::uint64_t count = bigEndian(trailer + 8, 8);
    const std::uint64_t top = bigEndian(trailer + 16, 8);
    m_offsetTable = bigEndian(trailer + 24, 8);

    if (m_offsetWidth < 1 || m_offsetWidth > 8)
        return failure(kEndIsMissing);
    if (m_referenceWidth < 1 || m_referenceWidth > 8)
        return failure(kEndIsMissing);
    if (m_offsetTable < kMagic.size() || m_offsetTable > trailer)
        return failure(kEndIsMissing);
    if (count > (trailer - m_offsetTable) / m_offsetWidth)
        return failure(kEndIsMissing);
    if (top >= count)
        return failure(kEndIsMissing);
    m_count = static_cast<std::uint32_t>(count);
    m_top = static_cast<std::uint32_t>(top);
    return {};
}

Expected<void> PropertyList::checkObjects() const
{
    // Objects that share bytes could make a small file mean any amount of work, so each byte has one owner.
    Bytes isTaken(static_cast<std::size_t>(m_offsetTable), 0);
    for (std::uint32_t i = 0; i < m_count; ++i) {
        const std::uint64_t start = position(i);
        if (start < kMagic.size() || start >= m_offsetTable)
            return failure("an object lies outside the object area");
        Header header;
        if (const char* fault = readHeader(start, header))
            return failure(fault);

        const std::uint64_t length = header.contents - start + std::uint64_t{header.size} * unitWidth(header);
        const auto first = isTaken.begin() + static_cast<std::ptrdiff_t>(start);
        const auto last = first + static_cast<std::ptrdiff_t>(length);
        if (std::find(first, last, 1) != last)
            return failure("two objects overlap");
        std::fill(first, last, std::uint8_t{1});

        if (header.kind == Kind::AsciiString) {
            const auto text = m_bytes.begin() + header.contents;
            if (std::any_of(text, text + header.size, [](std::uint8_t byte) { return byte > 0x7F; }))
                return failure("an ASCII string holds other characters");
        } else if (object(i).isContainer()) {
            const std::uint64_t end = start + length;
            for (std::uint64_t at = header.contents; at < end; at += m_referenceWidth) {
                if (bigEndian(at, m_referenceWidth) >= m_count)
                    return failure("a reference leads to no object");
            }
        }
    }
    return {};
}

const char* PropertyList::readHeader(std::uint64_t position, Header& header) const
{
    const unsigned high = byteAt(position) >> 4;
    const unsigned low = byteAt(position) & 15U;
    Kind kind{};
    std::uint64_t size = low;
    bool isCounted = false;
    bool isKnown = true;
    switch (high) {
    case 0x0:
        kind = low == 0 ? Kind::Null : Kind::Boolean;
        isKnown = low == 0x0 || low == 0x8 || low == 0x9;
        size = 0;
        break;
    case 0x1:
        kind = Kind::Integer;
        isKnown = low <= 4;
        size = std::uint64_t{1} << low;
        break;
    case 0x2:
        kind = Kind::Real;
        isKnown = low == 2 || low == 3;
        size = std::uint64_t{1} << low;
        break;
    case 0x3:
        kind = Kind::Date;
        isKnown = low == 3;
        size = 8;
        break;
    case 0x4:
        kind = Kind::Data;
        isCounted = true;
        break;
    case 0x5:
        kind = Kind::AsciiString;
        isCounted = true;
        break;
    case 0x6:
        kind = Kind::Utf16String;
        isCounted = true;
        break;
    case 0x8:
        kind = Kind::Uid;
        size = low + 1;
        break;
    case 0xA:
        kind = Kind::Array;
        isCounted = true;
        break;
    case 0xC:
        kind = Kind::Set;
        isCounted = true;
        break;
    case 0xD:
        kind = Kind::Dictionary;
        isCounted = true;
        break;
    default:
        isKnown = false;
    }
    if (!isKnown)
        return "an object is of no known kind";

    std::uint64_t contents = position + 1;
    if (isCounted && low == 15) { // an integer object with the count follows
        const unsigned marker = contents < m_offsetTable ? byteAt(contents) : 0;
        const unsigned width = 1U << (marker & 3U);
        if (marker < 0x10 || marker > 0x13 || width > m_offsetTable - contents - 1)
            return "the count of an object is damaged";
        size = bigEndian(contents + 1, width);
        contents += 1 + width;
    }
    header = {kind, static_cast<std::uint32_t>(contents), 0};
    if (size > (m_offsetTable - contents) / unitWidth(header))
        return "an object reaches beyond the object area";
    header.size = static_cast<std::uint32_t>(size);
    return nullptr;
}

unsigned PropertyList::unitWidth(Header header) const
{
    switch (header.kind) {
    case Kind::Utf16String:
        return 2;
    case Kind::Array:
    case Kind::Set:
        return m_referenceWidth;
    case Kind::Dictionary:
        return 2 * m_referenceWidth;
    default:
        return 1;
    }
}

} // namespace wallgrid
