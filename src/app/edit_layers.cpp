// SPDX-License-Identifier: MIT
#include "app/edit_layers.h"

namespace wallgrid {

void editLayers(GXAppDelegate& delegate, const ItemArray& items, const std::function<bool(GXItem&)>& edit)
{
    bool drawn = false;
    for (const ItemRef& item : items) {
        if (!edit(*item) || item == delegate.arraycontroller().selectedObject())
            continue;
        item->drawInRect();
        drawn = true;
    }
    if (drawn)
        delegate.update();
}

} // namespace wallgrid
