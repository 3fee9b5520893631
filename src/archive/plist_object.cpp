// SPDX-License-Identifier: MIT
#include "archive/property_list.h"

#include "base/portable.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace wallgrid {

PlistObject::PlistObject(const PropertyList& list, std::uint32_t index)
    : m_list(&list)
    , m_index(index)
{
    const std::uint64_t position = list.position(index);
    const std::uint8_t marker = list.byteAt(position);
    // open() has read each header, so it cannot fail. Nearly all are short strings: the keys, each looked at for each
    // field.
    if (const unsigned low = marker & 15U; marker >> 4 == 0x5 && low < 15)
        m_header = {Kind::AsciiString, static_cast<std::uint32_t>(position + 1), low};
    else
        list.readHeader(position, m_header);
}

std::uint64_t PlistObject::number() const
{
    // A number of 16 bytes counts by its low eight.
    const std::uint32_t width = std::min(size(), 8U);
    return m_list->bigEndian(m_header.contents + size() - width, width);
}

bool PlistObject::boolean() const
{
    return m_list->m_bytes[m_header.contents - 1] == 0x09;
}

PlistObject::Integer PlistObject::integer() const
{
    // 1, 2 and 4 bytes are unsigned, 8 and 16 are two's complement.
    const auto value = static_cast<std::int64_t>(number());
    if (size() < 16)
        return {value, true};
    return {value, m_list->bigEndian(m_header.contents, 8) == (value < 0 ? ~std::uint64_t{0} : 0)};
}

double PlistObject::real() const
{
    if (size() == 4)
        return static_cast<double>(bitCast<float>(static_cast<std::uint32_t>(number())));
    return bitCast<double>(number());
}

std::uint64_t PlistObject::uid() const
{
    const auto bytes = data();
    const bool fits = size() <= 8 || std::all_of(bytes.begin(), bytes.end() - 8, [](auto byte) { return byte == 0; });
    return fits ? number() : std::numeric_limits<std::uint64_t>::max();
}

std::span<const std::uint8_t> PlistObject::data() const
{
    return std::span(m_list->m_bytes).subspan(m_header.contents, size());
}

char16_t PlistObject::unit(std::uint32_t i) const
{
    if (kind() == Kind::AsciiString)
        return m_list->m_bytes[m_header.contents + i];
    return static_cast<char16_t>(m_list->bigEndian(m_header.contents + std::uint64_t{2} * i, 2));
}

std::u16string PlistObject::text() const
{
    std::u16string text(size(), u'\0');
    for (std::uint32_t i = 0; i < size(); ++i)
        text[i] = unit(i);
    return text;
}

bool PlistObject::isText(std::string_view ascii) const
{
    if (!isString() || size() != ascii.size())
        return false;
    if (kind() == Kind::AsciiString)
        return std::memcmp(ascii.data(), data().data(), ascii.size()) == 0;
    for (std::uint32_t i = 0; i < size(); ++i) {
        if (unit(i) != static_cast<unsigned char>(ascii[i]))
            return false;
    }
    return true;
}

PlistObject PlistObject::reference(std::uint64_t i) const
{
    const unsigned width = m_list->m_referenceWidth;
    return {*m_list, static_cast<std::uint32_t>(m_list->bigEndian(m_header.contents + i * width, width))};
}

PlistObject PlistObject::element(std::uint32_t i) const
{
    return reference(i);
}

PlistObject PlistObject::key(std::uint32_t i) const
{
    return reference(i);
}

PlistObject PlistObject::value(std::uint32_t i) const
{
    return reference(std::uint64_t{size()} + i);
}

std::span<const std::uint8_t> PlistObject::encodedScalar() const
{
    const auto start = m_list->position(m_index);
    const auto end = m_header.contents + std::uint64_t{size()} * m_list->unitWidth(m_header);
    return std::span(m_list->m_bytes).subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

} // namespace wallgrid
