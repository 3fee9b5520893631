// SPDX-License-Identifier: MIT
#include "graphics/toolkit.h"

namespace wallgrid {

namespace {

constinit Toolkit* installed = nullptr;

} // namespace

Toolkit* Toolkit::current()
{
    return installed;
}

void Toolkit::install(Toolkit* toolkit)
{
    installed = toolkit;
}

} // namespace wallgrid
