// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace wallgrid {

class GXAppDelegate;

/// In words, how many of the visible layers the output does not show, or not whole. Empty when it shows all of them.
QString outsideText(const GXAppDelegate& delegate);

} // namespace wallgrid
