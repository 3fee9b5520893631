// SPDX-License-Identifier: MIT
#pragma once

#include "archive/property_list.h"

#include <optional>
#include <unordered_map>

namespace wallgrid {

/// Finds the values of a property list's dictionaries by key. The first of two equal keys counts; keys that are no
/// strings are passed over. A dictionary of usual size is searched from end to end; the keys of a large one are sorted
/// once, so a file with one huge dictionary under a hundred thousand names costs no more than its size.
class DictionaryLookup {
public:
    std::optional<PlistObject> value(const PlistObject& dictionary, std::string_view key);

private:
    /// By index of a large dictionary: its pairs in the order of their keys.
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> m_sortedPairs;
};

} // namespace wallgrid
