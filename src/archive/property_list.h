// SPDX-License-Identifier: MIT
#pragma once

#include "base/byte_buffer.h"
#include "base/error.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wallgrid {

class PropertyList;

/// One object of an opened property list, read straight from the file's bytes; valid as long as the list is. Each
/// function below wants the kind of object that it names.
class PlistObject {
public:
    enum class Kind : std::uint8_t {
        Null,
        Boolean,
        Integer,
        Real,
        Date,
        Data,
        AsciiString,
        Utf16String,
        Uid,
        Array,
        Set,
        Dictionary
    };

    struct Integer {
        std::int64_t value; ///< The low 64 bits.
        bool isExact;       ///< Whether they are the whole number.
    };

    Kind kind() const { return m_header.kind; }
    bool isString() const { return kind() == Kind::AsciiString || kind() == Kind::Utf16String; }
    bool isContainer() const { return kind() == Kind::Array || kind() == Kind::Set || kind() == Kind::Dictionary; }
    /// Place in the object table. Equal indexes are one object, however many references lead to it.
    std::uint32_t index() const { return m_index; }
    /// Elements of an array or set, pairs of a dictionary, UTF-16 units of a string, bytes of anything else.
    std::uint32_t size() const { return m_header.size; }

    bool boolean() const;
    Integer integer() const;
    double real() const;
    /// The largest 64-bit number stands for every UID too large for 64 bits.
    std::uint64_t uid() const;
    std::span<const std::uint8_t> data() const;
    char16_t unit(std::uint32_t i) const;
    std::u16string text() const;
    bool isText(std::string_view ascii) const;

    PlistObject element(std::uint32_t i) const;
    PlistObject key(std::uint32_t i) const;
    PlistObject value(std::uint32_t i) const;

    /// A scalar as it stands in the file, marker byte included.
    std::span<const std::uint8_t> encodedScalar() const;

private:
    friend class PropertyList;

    struct Header {
        Kind kind = Kind::Null;
        std::uint32_t contents = 0; ///< Position of the first byte after marker and count.
        std::uint32_t size = 0;
    };

    PlistObject(const PropertyList& list, std::uint32_t index);
    std::uint64_t number() const;
    PlistObject reference(std::uint64_t i) const;

    const PropertyList* m_list;
    std::uint32_t m_index;
    Header m_header;
};

/// A binary property list ("bplist00"), checked whole when it is opened: header, trailer, offset table, the extent of
/// every object and every reference. Reading is flat and takes time and memory in proportion to the file: nothing
/// follows references, nothing copies what is shared, and no two objects may share bytes. References may still form
/// cycles, so whoever walks them keeps count.
///
/// Format: header, objects, offset table, 32-byte trailer, as in the open-source CoreFoundation (CFBinaryPList.c).
class PropertyList {
public:
    /// Fails on anything that is not a sound property list of less than 4 GiB.
    static Expected<std::shared_ptr<const PropertyList>> open(Bytes bytes);

    PropertyList(const PropertyList&) = delete;
    PropertyList& operator=(const PropertyList&) = delete;

    std::uint32_t count() const { return m_count; }
    PlistObject object(std::uint32_t index) const { return {*this, index}; }
    PlistObject top() const { return object(m_top); }

private:
    friend class PlistObject;
    using Header = PlistObject::Header;

    explicit PropertyList(Bytes bytes);
    Expected<void> readTrailer();
    Expected<void> checkObjects() const;
    /// What is wrong with the object at a position; nullptr and its header when nothing is.
    const char* readHeader(std::uint64_t position, Header& header) const;
    /// A position inside the file fits in a size.
    std::uint8_t byteAt(std::uint64_t position) const { return m_bytes[static_cast<std::size_t>(position)]; }
    /// Bytes that one of size() takes in the file.
    unsigned unitWidth(Header header) const;
    std::uint64_t position(std::uint32_t index) const
    {
        return bigEndian(m_offsetTable + std::uint64_t{index} * m_offsetWidth, m_offsetWidth);
    }
    /// A number of 1 to 8 bytes. Eight are loaded whatever the width, because nearly all the time of reading goes by in
    /// here; the trailer sees to it that there are as many.
    std::uint64_t bigEndian(std::uint64_t position, unsigned width) const
    {
        std::uint64_t number = 0;
        std::memcpy(&number, m_bytes.data() + position, sizeof number);
        if constexpr (std::endian::native == std::endian::little)
            number = __builtin_bswap64(number);
        return number >> (64 - 8 * width);
    }

    Bytes m_bytes;
    std::uint64_t m_offsetTable = 0;
    unsigned m_offsetWidth = 0;
    unsigned m_referenceWidth = 0;
    std::uint32_t m_count = 0;
    std::uint32_t m_top = 0;
};

} // namespace wallgrid
