// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_unarchiver.h"
#include "base/string_ref.h"
#include "base/url.h"
#include "graphics/color.h"

#include <optional>
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
    // Errors: a reference to no object of the archive, or to one of another class.
    StringRef decodeString(std::string_view key);
    ColorRef decodeColor(std::string_view key);
    /// See ArchiveReader::url().
    UrlRef decodeUrl(std::string_view key);
    std::vector<std::uint8_t> decodeData(std::string_view key);

    const std::optional<Error>& error() const { return m_error; }

private:
    template <class T>
    T read(Expected<T> (ArchiveReader::*method)(const PlistObject&, std::string_view), std::string_view key);

    ArchivedObject m_record;
    std::optional<Error> m_error;
};

} // namespace wallgrid
