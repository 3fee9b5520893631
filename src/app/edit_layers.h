// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"

#include <functional>

namespace wallgrid {

/// Makes the same edit on several layers, in the order of the list from the top. The edit calls setters of the item, as
/// far as they change something, and says whether the item's picture is another one. The controller draws only the
/// first selected layer by itself; the others are drawn here.
void editLayers(GXAppDelegate& delegate, const ItemArray& items, const std::function<bool(GXItem&)>& edit);

} // namespace wallgrid
