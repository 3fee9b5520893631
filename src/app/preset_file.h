// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "base/file.h"
#include "items/gx_item.h"

namespace wallgrid {

/// A preset file, which has no extension of its own: a keyed archive whose root is the array of presets. Reading fails,
/// without having touched anything else, when the bytes are no archive or the root is no array of items.
Expected<ItemArray> readPresets(Bytes bytes);

Bytes writePresets(const ItemArray& presets);

} // namespace wallgrid
