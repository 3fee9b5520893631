// SPDX-License-Identifier: MIT
#pragma once

#include "archive/property_list.h"

namespace wallgrid {

/// Asks every object of a list for everything that its kind has, to the last element.
void readEverything(const PropertyList& list);

} // namespace wallgrid
