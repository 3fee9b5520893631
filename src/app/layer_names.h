// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <vector>

namespace wallgrid {

/// Whether a name stands at more than one item. No name is not a name.
bool haveEqualNames(const ItemArray& items);

/// The items' names in the same order, those that repeat an earlier one numbered: "Wall", "Wall 2", "Wall 3". A number
/// whose name another item has already is passed over. The items keep their names.
std::vector<StringRef> namesWithNumbers(const ItemArray& items);

} // namespace wallgrid
