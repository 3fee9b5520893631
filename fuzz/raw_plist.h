// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace wallgrid::fuzz {

/// "62 70" and "6270" are both the bytes "bp".
inline std::string fromHex(std::string_view digits)
{
    std::string text;
    std::copy_if(digits.begin(), digits.end(), std::back_inserter(text), [](char c) { return c != ' '; });
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2)
        bytes += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
    return bytes;
}

inline std::string bigEndian(std::uint64_t number, unsigned width)
{
    std::string bytes;
    while (width-- > 0)
        bytes += static_cast<char>(number >> (8 * width));
    return bytes;
}

/// A binary property list put together object by object and without any check.
/// References and offsets take 2 bytes.
class RawPlist {
public:
    /// Adds an object given by its bytes.
    void raw(std::string bytes) { m_objects.push_back(std::move(bytes)); }

    /// Adds an array, a set or a dictionary by its marker (A0, C0, D0); of a dictionary all keys, then all values.
    void container(char marker, const std::vector<unsigned>& references)
    {
        const bool isDictionary = marker == static_cast<char>(0xD0);
        const std::size_t size = isDictionary ? references.size() / 2 : references.size();
        std::string bytes = std::string{static_cast<char>(marker | 15), '\x12'} + bigEndian(size, 4);
        for (const unsigned reference : references)
            bytes += bigEndian(reference, 2);
        raw(std::move(bytes));
    }

    std::vector<std::uint8_t> file(unsigned top) const
    {
        std::string file = "bplist00", table;
        for (const std::string& object : m_objects) {
            table += bigEndian(file.size(), 2);
            file += object;
        }
        const std::size_t tablePosition = file.size();
        file += table + std::string(6, '\0') + "\2\2" + bigEndian(m_objects.size(), 8) + bigEndian(top, 8) +
                bigEndian(tablePosition, 8);
        return {file.begin(), file.end()};
    }

private:
    std::vector<std::string> m_objects;
};

} // namespace wallgrid::fuzz
