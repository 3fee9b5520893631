// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace wallgrid {

/// Whether two items have the same name. Items without a name do not count.
bool haveEqualNames(const ItemArray& items);

/// The items' names in the same order, those that repeat an earlier one numbered: "Wall", "Wall 2", "Wall 3". A number
/// whose name another item has already is passed over. The items keep their names.
std::vector<StringRef> namesWithNumbers(const ItemArray& items);

/// Names for new items beside others. A name that is taken gives way to the same start with the number behind the
/// highest one that anybody has: "Wall 7" to "Wall 8", "W07" to "W08", "Logo" to "Logo 2". No name stays none.
class RunningNames {
public:
    /// The names of these items are taken.
    explicit RunningNames(const ItemArray& items);

    /// The name for a new item that would like this one. It is taken from then on.
    StringRef unused(const StringRef& name);

private:
    void take(const std::u16string& name);

    std::unordered_set<std::u16string> m_taken;
    std::unordered_map<std::u16string, std::int64_t> m_highest; ///< by the start of the name
};

/// A typed name for the layer of a number, from 1: the first run of "#" is the number, with at least as many digits.
StringRef nameWithNumber(std::u16string_view typed, std::size_t number);

} // namespace wallgrid
