// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_unarchiver.h"
#include "base/string_ref.h"
#include "base/url.h"
#include "graphics/color.h"

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

namespace wallgrid {

class PlistObject;

/// Reads the values of one record by key. A key that the record lacks reads as 0, NO or an empty reference. The first
/// failure is kept, and every read after it gives 0, NO or empty, so a record is read to its end and asked once.
///
/// Equal references come back as the same shared value for the life of the archive.
class KeyedDecoder {
public:
    explicit KeyedDecoder(ArchivedObject record);

    /// An integer stored in any width; an error when it does not fit in 32 bits or is of another kind.
    std::int32_t decodeInt(std::string_view key);
    /// A boolean, or an integer that is not 0; an error when it is of another kind.
    bool decodeBool(std::string_view key);
    /// Bytes that stand in the record itself; valid as long as the archive is.
    std::span<const std::uint8_t> decodeBytes(std::string_view key);
    // Errors: a reference to no object of the archive, or to one of another class.
    std::optional<ArchivedObject> decodeObject(std::string_view key);
    StringRef decodeString(std::string_view key);
    ColorRef decodeColor(std::string_view key);
    /// See ArchivedUrls for a location that is not read as it stands.
    UrlRef decodeUrl(std::string_view key);
    Bytes decodeData(std::string_view key);

    const std::optional<Error>& error() const { return m_error; }
    /// Goes on reading, for a record of which as much as possible is wanted.
    void clearError() { m_error.reset(); }

private:
    /// Nothing also after a failure.
    std::optional<PlistObject> value(std::string_view key);
    void fail(std::string_view key, std::string_view reason);
    void failOfClass(std::string_view key, const ArchivedObject& object);
    bool expectClass(const ArchivedObject& object, std::initializer_list<std::string_view> known, std::string_view key);

    ArchivedObject m_record;
    std::optional<Error> m_error;
};

} // namespace wallgrid
