// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace wallgrid {

struct DocumentChange;

/// What the menu calls a change, as in "Undo Move".
QString changeName(const DocumentChange& change);

} // namespace wallgrid
