// SPDX-License-Identifier: MIT
#include "archive/property_list_writer.h"

#include "base/big_endian.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace wallgrid {

namespace {

/// The smallest of 1, 2, 4 and 8 bytes that holds the number.
unsigned widthOf(std::uint64_t number)
{
    return number <= 0xFF ? 1 : number <= 0xFFFF ? 2 : number <= 0xFFFFFFFF ? 4 : 8;
}

/// 1, 2 and 4 bytes are unsigned, so a negative number takes 8.
std::string encodedInteger(std::uint64_t number)
{
    const unsigned width = widthOf(number);
    const char sizes[] = {0, 0x10, 0x11, 0, 0x12, 0, 0, 0, 0x13};
    std::string bytes(1, sizes[width]);
    appendBigEndian(bytes, number, width);
    return bytes;
}

/// Marker and count of a string, data or container.
std::string head(std::uint8_t marker, std::size_t size)
{
    if (size < 15)
        return std::string(1, static_cast<char>(marker | size));
    return std::string(1, static_cast<char>(marker | 15)).append(encodedInteger(size));
}

} // namespace

PropertyListWriter::Ref PropertyListWriter::scalar(std::string bytes)
{
    if (const auto known = m_scalars.find(bytes); known != m_scalars.end())
        return known->second;
    const auto ref = static_cast<Ref>(m_objects.size());
    m_objects.push_back({std::move(bytes), {}});
    m_scalars.emplace(m_objects.back().bytes, ref);
    return ref;
}

PropertyListWriter::Ref PropertyListWriter::container(std::uint8_t marker, std::size_t size,
                                                      std::vector<Ref> references)
{
    m_objects.push_back({head(marker, size), std::move(references)});
    return static_cast<Ref>(m_objects.size() - 1);
}

PropertyListWriter::Ref PropertyListWriter::boolean(bool value)
{
    return scalar(value ? "\x09" : "\x08");
}

PropertyListWriter::Ref PropertyListWriter::integer(std::int64_t value)
{
    return scalar(encodedInteger(static_cast<std::uint64_t>(value)));
}

PropertyListWriter::Ref PropertyListWriter::uid(std::uint32_t value)
{
    const unsigned width = widthOf(value);
    std::string bytes(1, static_cast<char>(0x80 | (width - 1)));
    appendBigEndian(bytes, value, width);
    return scalar(std::move(bytes));
}

PropertyListWriter::Ref PropertyListWriter::data(std::string_view bytes)
{
    return scalar(head(0x40, bytes.size()).append(bytes));
}

PropertyListWriter::Ref PropertyListWriter::string(std::string_view ascii)
{
    return scalar(head(0x50, ascii.size()).append(ascii));
}

PropertyListWriter::Ref PropertyListWriter::string(std::u16string_view text)
{
    if (std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; }))
        return string(std::string(text.begin(), text.end()));
    std::string bytes = head(0x60, text.size());
    bytes.reserve(bytes.size() + 2 * text.size());
    for (const char16_t unit : text)
        appendBigEndian(bytes, unit, 2);
    return scalar(std::move(bytes));
}

PropertyListWriter::Ref PropertyListWriter::encodedScalar(std::span<const std::uint8_t> bytes)
{
    return scalar(std::string(bytes.begin(), bytes.end()));
}

PropertyListWriter::Ref PropertyListWriter::array(std::vector<Ref> elements)
{
    const std::size_t size = elements.size();
    return container(0xA0, size, std::move(elements));
}

PropertyListWriter::Ref PropertyListWriter::set(std::vector<Ref> elements)
{
    const std::size_t size = elements.size();
    return container(0xC0, size, std::move(elements));
}

PropertyListWriter::Ref PropertyListWriter::dictionary(std::vector<Ref> keys, const std::vector<Ref>& values)
{
    const std::size_t size = keys.size();
    keys.insert(keys.end(), values.begin(), values.end());
    return container(0xD0, size, std::move(keys));
}

Bytes PropertyListWriter::write(Ref top) const
{
    constexpr Ref kUnseen = std::numeric_limits<Ref>::max();
    std::vector<Ref> numbers(m_objects.size(), kUnseen); // place in the file, by Ref
    std::vector<Ref> order;
    std::vector<Ref> pending{top};
    while (!pending.empty()) {
        const Ref ref = pending.back();
        pending.pop_back();
        if (numbers[ref] != kUnseen)
            continue;
        numbers[ref] = static_cast<Ref>(order.size());
        order.push_back(ref);
        const auto& references = m_objects[ref].references;
        pending.insert(pending.end(), references.rbegin(), references.rend());
    }

    constexpr std::string_view kMagic = "bplist00";
    Bytes file(kMagic.begin(), kMagic.end());
    const unsigned referenceWidth = widthOf(order.size());
    std::vector<std::uint64_t> offsets;
    offsets.reserve(order.size());
    for (const Ref ref : order) {
        offsets.push_back(file.size());
        const Object& object = m_objects[ref];
        file.insert(file.end(), object.bytes.begin(), object.bytes.end());
        for (const Ref reference : object.references)
            appendBigEndian(file, numbers[reference], referenceWidth);
    }

    const std::uint64_t offsetTable = file.size();
    const unsigned offsetWidth = widthOf(offsetTable);
    for (const std::uint64_t offset : offsets)
        appendBigEndian(file, offset, offsetWidth);

    appendBigEndian(file, 0, 6); // five unused bytes, sort version
    appendBigEndian(file, offsetWidth, 1);
    appendBigEndian(file, referenceWidth, 1);
    appendBigEndian(file, order.size(), 8);
    appendBigEndian(file, 0, 8); // the top object comes first
    appendBigEndian(file, offsetTable, 8);
    return file;
}

} // namespace wallgrid
