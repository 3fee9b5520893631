// SPDX-License-Identifier: MIT
#pragma once

#include "archive/dictionary_lookup.h"
#include "archive/keyed_archive.h"
#include "base/string_ref.h"
#include "base/url.h"
#include "graphics/color.h"

#include <initializer_list>

namespace wallgrid {

/// Reads the values of an archive's records by key. A key that is not there gives 0, NO or an empty reference; a value
/// of another kind is an error. Strings, colours and URLs are made once and shared from then on, so a name of ten
/// megabytes under a hundred thousand items is held once.
class ArchiveReader {
public:
    explicit ArchiveReader(std::shared_ptr<const KeyedArchive> archive);

    const std::shared_ptr<const KeyedArchive>& archive() const { return m_archive; }

    std::optional<PlistObject> value(const PlistObject& record, std::string_view key);
    Expected<std::int32_t> integer(const PlistObject& record, std::string_view key);
    Expected<bool> boolean(const PlistObject& record, std::string_view key);
    Expected<std::span<const std::uint8_t>> data(const PlistObject& record, std::string_view key);
    /// The number of the entry that is referred to, 0 for nil.
    Expected<std::uint32_t> reference(const PlistObject& record, std::string_view key);

    /// The bytes of a data object; none for nil.
    Expected<std::vector<std::uint8_t>> dataObject(const PlistObject& record, std::string_view key);
    Expected<StringRef> string(const PlistObject& record, std::string_view key);
    /// A location that is not read as it stands (text that is no URL, no text, too much of it, a base that is none or
    /// never ends) comes as near as it can be, and keeps its archived form.
    Expected<UrlRef> url(const PlistObject& record, std::string_view key);
    Expected<ColorRef> color(const PlistObject& record, std::string_view key);

    /// Whether an entry has a class with a name.
    bool isRecord(const PlistObject& entry);
    /// The name of an entry's class; "" for an entry that is no record, or whose class has no sensible name.
    std::string className(const PlistObject& entry);
    /// The first of an entry's class name and the hints that stand beside it (the classes to take in its place) that
    /// is among the known ones; "" when none is.
    std::string_view classAmong(const PlistObject& entry, std::initializer_list<std::string_view> known);

private:
    std::optional<PlistObject> classDescription(const PlistObject& entry);
    Expected<void> expectClass(const PlistObject& entry, std::initializer_list<std::string_view> known,
                               std::string_view key);
    StringRef shared(const PlistObject& string);
    /// A text as a URL by itself; empty for one that is too long.
    UrlRef urlOfText(const StringRef& text);
    /// The URL of an entry seen from its base; a base that is no URL is not sound.
    UrlRef resolved(std::uint32_t uid, const UrlRef& base, bool hasSoundBase);

    std::shared_ptr<const KeyedArchive> m_archive;
    DictionaryLookup m_lookup;
    // By index of the property-list object that the value was made from.
    std::unordered_map<std::uint32_t, StringRef> m_strings;
    std::unordered_map<std::uint32_t, ColorRef> m_colors;
    std::unordered_map<std::uint32_t, UrlRef> m_urls;
    std::unordered_map<StringRef, UrlRef> m_urlsOfTexts;
    /// How many characters may still be made for URLs that are not just their text.
    std::uint64_t m_urlAllowance;
};

} // namespace wallgrid
