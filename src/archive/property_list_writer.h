// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wallgrid {

/// Builds a binary property list. Objects are added in any order and named by the number that adding them returns;
/// equal scalars are one object. The same calls give the same bytes.
class PropertyListWriter {
public:
    using Ref = std::uint32_t;

    Ref boolean(bool value);
    Ref integer(std::int64_t value);
    Ref uid(std::uint32_t value);
    Ref data(std::string_view bytes);
    Ref string(std::string_view ascii);
    Ref string(std::u16string_view text);
    /// A scalar as another property list holds it.
    Ref encodedScalar(std::span<const std::uint8_t> bytes);

    Ref array(std::vector<Ref> elements);
    Ref set(std::vector<Ref> elements);
    /// As many keys as values.
    Ref dictionary(std::vector<Ref> keys, const std::vector<Ref>& values);

    /// The file: `top` and everything that it leads to. Each object stands after the first that refers to it, keys
    /// before values, values depth first.
    Bytes write(Ref top) const;

private:
    /// What an object is in the file: its bytes (of a container only marker and count), then its references.
    struct Object {
        std::string bytes;
        std::vector<Ref> references;
    };

    Ref scalar(std::string bytes);
    Ref container(std::uint8_t marker, std::size_t size, std::vector<Ref> references);

    std::deque<Object> m_objects;
    /// Views into m_objects, whose elements stay where they are.
    std::unordered_map<std::string_view, Ref> m_scalars;
};

} // namespace wallgrid
