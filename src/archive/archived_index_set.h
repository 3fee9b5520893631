// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "base/file.h"

#include <cstddef>
#include <set>

namespace wallgrid {

/// A set of row numbers as a keyed archive whose root is an NSIndexSet. Rows are below 2^31.
Bytes archivedIndexSet(const std::set<std::size_t>& indexes);

/// The lowest number of an archived set. Fails on an empty set and on anything that is no such archive.
Expected<std::size_t> firstIndexOfArchivedSet(Bytes archive);

} // namespace wallgrid
