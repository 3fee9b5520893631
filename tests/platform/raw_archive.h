// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wallgrid::test {

using Bytes = std::vector<std::uint8_t>;

/// "62 70" and "6270" are both the bytes "bp".
std::string fromHex(std::string_view digits);
Bytes fromBase64(std::string_view text);

/// A binary property list put together object by object and without any check, to make what no writer makes.
/// References and offsets take 4 bytes unless told otherwise.
class RawPlist {
public:
    using Ref = unsigned;

    explicit RawPlist(unsigned offsets = 4, unsigned references = 4);

    /// An object given by its bytes.
    Ref raw(std::string bytes);
    /// The number that the next object gets.
    Ref next() const { return static_cast<Ref>(m_objects.size()); }
    Ref ascii(std::string_view text);
    Ref utf16(std::u16string_view text);
    Ref data(std::string_view bytes);
    /// Of 8 bytes.
    Ref integer(std::int64_t value);
    Ref boolean(bool value);
    Ref real(double value);
    Ref uid(std::uint64_t value, unsigned width = 4);
    Ref array(const std::vector<Ref>& elements);
    Ref dictionary(const std::vector<std::pair<Ref, Ref>>& pairs);
    /// Array, set or dictionary by its marker (A0, C0, D0); of a dictionary all keys, then all values.
    Ref container(char marker, const std::vector<Ref>& refs);

    std::string references(const std::vector<Ref>& refs) const;
    Bytes file(Ref top) const;

private:
    unsigned m_offsetWidth;
    unsigned m_referenceWidth;
    std::vector<std::string> m_objects;
};

/// A project file built from parts that can each be replaced: the root array of height 1080, width 1920 and two items,
/// a screen and a still.
class RawProject : public RawPlist {
public:
    using Fields = std::vector<std::pair<std::string, Ref>>;

    /// Entries of $objects by UID. More can be added.
    enum Entry : unsigned {
        Null,
        Root,
        Height,
        Width,
        Items,
        Screen,
        Still,
        Label,
        Colour,
        Link,
        LinkText,
        ArrayClass,
        ScreenClass,
        StillClass,
        ColourClass,
        LinkClass,
        EntryCount
    };

    explicit RawProject(unsigned offsets = 4, unsigned references = 4);

    /// Puts a value into a record, in place of the one that is there under this key.
    void set(unsigned entry, std::string_view key, Ref value);
    void remove(unsigned entry, std::string_view key);
    /// Makes an entry a bare object.
    void replace(unsigned entry, Ref object);
    /// A new entry; its UID.
    unsigned add(Ref object);
    unsigned addRecord(const Fields& fields);
    unsigned addClass(const std::vector<std::string>& classes);

    Fields roots;

    Bytes file();

private:
    struct Slot {
        Fields fields;
        std::optional<Ref> object;
    };

    std::vector<Slot> m_entries;
};

} // namespace wallgrid::test
