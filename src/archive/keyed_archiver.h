// SPDX-License-Identifier: MIT
#pragma once

#include "archive/archive_copier.h"
#include "archive/keyed_coding.h"
#include "base/byte_buffer.h"
#include "base/string_ref.h"
#include "base/url.h"
#include "graphics/color.h"

namespace wallgrid {

/// Writes a keyed archive (NSKeyedArchiver, binary property list) in the form that every system version reads. What is
/// one object in memory is one entry: a colour, a string or a URL shared by a thousand items, an item that stands in a
/// list twice. A colour that came from an archive with more than its components is written with all of that. So is a
/// location that was not read as it stood.
class KeyedArchiver {
public:
    /// The same values give the same bytes.
    static Bytes archivedDataWithRootObject(const ArchiveValue& root, const NamedValues& beside = {});

    // For encodeWithCoder() of the object being written. Keys are ASCII, differ, and do not start with '$'.
    void encodeInt(std::int32_t value, std::string_view key);
    void encodeBool(bool value, std::string_view key);
    // An empty reference is written as nil.
    void encodeObject(const StringRef& string, std::string_view key);
    void encodeObject(const ColorRef& color, std::string_view key);
    void encodeObject(const UrlRef& url, std::string_view key);
    void encodeObject(const Bytes& data, std::string_view key);

private:
    using Ref = PropertyListWriter::Ref;
    using Uid = std::uint32_t;

    struct Record {
        std::vector<Ref> keys;
        std::vector<Ref> values;
    };

    KeyedArchiver();

    Uid add(std::int64_t number);
    Uid add(const std::shared_ptr<const Archivable>& object);
    Uid add(const std::shared_ptr<const ArchiveArray>& array);
    Uid add(const StringRef& string);
    Uid add(const ColorRef& color);
    Uid add(const UrlRef& url);
    Uid add(const ArchiveValue& value);

    /// The entry of an object, made when there is none yet; whether it was made.
    std::pair<Uid, bool> entryOf(const std::shared_ptr<const void>& object);
    Uid newEntry();
    void set(Record& record, std::string_view key, Ref value);
    /// Puts a finished record in its entry; `classes` from its class up to NSObject.
    void finish(Uid uid, Record& record, std::initializer_list<std::string_view> classes);
    Bytes finish(Record names);

    PropertyListWriter m_writer;
    std::vector<Ref> m_objects;
    ArchiveCopier m_copier;
    Record m_record; ///< Of the object in encodeWithCoder().
    /// Keeps the objects, so that none can take the address of another.
    std::unordered_map<std::shared_ptr<const void>, Uid> m_entries;
    std::unordered_map<std::int64_t, Uid> m_numbers;
    std::unordered_map<std::string, Uid> m_classes;
};

} // namespace wallgrid
