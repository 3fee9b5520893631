// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_item.h"

#include <QString>
#include <optional>

namespace wallgrid {

/// The file or location that a still was made from, ready to be shown; nothing for any other item.
std::optional<QString> imageFile(const GXItem& item);

/// The same of a still whose file could not be read when it was loaded.
std::optional<QString> missingImageFile(const GXItem& item);

} // namespace wallgrid
