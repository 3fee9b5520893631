// SPDX-License-Identifier: MIT
#include "archive/dictionary_lookup.h"

#include <algorithm>

namespace wallgrid {

namespace {

/// Twice what the largest record of any system has.
constexpr std::uint32_t kLargestScanned = 48;
/// Longer keys are never asked for, and comparing them would cost more than the file is worth.
constexpr std::uint32_t kLongestKey = 64;

/// Negative, zero or positive as the key sorts before, with or after the text.
int compare(const PlistObject& key, const auto& text, std::uint32_t textSize)
{
    const std::uint32_t common = std::min(key.size(), textSize);
    for (std::uint32_t i = 0; i < common; ++i) {
        if (const int difference = key.unit(i) - text(i); difference != 0)
            return difference;
    }
    return static_cast<int>(key.size()) - static_cast<int>(textSize);
}

std::vector<std::uint32_t> sortedPairs(const PlistObject& dictionary)
{
    std::vector<std::uint32_t> pairs;
    for (std::uint32_t i = 0; i < dictionary.size(); ++i) {
        const PlistObject key = dictionary.key(i);
        if (key.isString() && key.size() <= kLongestKey)
            pairs.push_back(i);
    }
    std::stable_sort(pairs.begin(), pairs.end(), [&](std::uint32_t a, std::uint32_t b) {
        const PlistObject left = dictionary.key(a);
        const PlistObject right = dictionary.key(b);
        return left.index() != right.index() &&
               compare(
                   left, [&](std::uint32_t i) { return right.unit(i); }, right.size()) < 0;
    });
    return pairs;
}

} // namespace

std::optional<PlistObject> DictionaryLookup::value(const PlistObject& dictionary, std::string_view key)
{
    if (dictionary.size() <= kLargestScanned) {
        for (std::uint32_t i = 0; i < dictionary.size(); ++i) {
            if (dictionary.key(i).isText(key))
                return dictionary.value(i);
        }
        return std::nullopt;
    }
    const auto [entry, isNew] = m_sortedPairs.try_emplace(dictionary.index());
    if (isNew)
        entry->second = sortedPairs(dictionary);
    const auto& pairs = entry->second;
    const auto unit = [key](std::uint32_t i) { return static_cast<unsigned char>(key[i]); };
    const auto found = std::lower_bound(pairs.begin(), pairs.end(), key, [&](std::uint32_t pair, std::string_view) {
        return compare(dictionary.key(pair), unit, static_cast<std::uint32_t>(key.size())) < 0;
    });
    if (found == pairs.end() || !dictionary.key(*found).isText(key))
        return std::nullopt;
    return dictionary.value(*found);
}

} // namespace wallgrid
