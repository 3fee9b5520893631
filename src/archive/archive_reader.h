// SPDX-License-Identifier: MIT
#pragma once

#include "archive/archived_urls.h"
#include "archive/dictionary_lookup.h"
#include "archive/keyed_archive.h"
#include "base/string_ref.h"
#include "graphics/color.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace wallgrid {

/// What all handles and decoders of one archive share: how keys and classes are looked up, and the strings, colours and
/// locations that were made. Each is made once, so a name of ten megabytes under a hundred thousand items is held once.
class ArchiveReader {
public:
    explicit ArchiveReader(std::shared_ptr<const KeyedArchive> archive);

    const std::shared_ptr<const KeyedArchive>& archive() const { return m_archive; }

    std::optional<PlistObject> value(const PlistObject& record, std::string_view key);

    /// The name of an entry's class. Nothing for an entry that is no record.
    std::optional<PlistObject> className(const PlistObject& entry);
    /// The first of an entry's class name and the hints that stand beside it (the classes to take in its place) that
    /// is among the known ones; "" when none is.
    std::string_view classAmong(const PlistObject& entry, std::initializer_list<std::string_view> known);

    StringRef string(const PlistObject& string);
    /// See readColor(); empty for an object that is no colour.
    ColorRef color(const ArchivedObject& object);
    /// See ArchivedUrls; empty for an object that is no location.
    UrlRef url(const ArchivedObject& object);

private:
    std::optional<PlistObject> classDescription(const PlistObject& entry);

    std::shared_ptr<const KeyedArchive> m_archive;
    DictionaryLookup m_lookup;
    // By index of the property-list object that the value was made from.
    std::unordered_map<std::uint32_t, StringRef> m_strings;
    std::unordered_map<std::uint32_t, ColorRef> m_colors;
    std::unordered_map<std::uint32_t, UrlRef> m_urls;
    ArchivedUrls m_archivedUrls;
};

} // namespace wallgrid
