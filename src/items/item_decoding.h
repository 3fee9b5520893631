// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_unarchiver.h"
#include "base/error.h"
#include "base/progress.h"
#include "items/gx_item.h"

namespace wallgrid {

/// The items of an archived array, in order. An item that the array names more than once is made once and stands in
/// the result as often. Fails when the object is not an array or an element is no readable item record.
Expected<ItemArray> decodeItems(const ArchivedObject& array, const Report& report = {});

} // namespace wallgrid
