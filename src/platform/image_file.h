// SPDX-License-Identifier: MIT
#pragma once

#include "platform/error.h"
#include "platform/image.h"
#include "platform/url.h"

namespace wallgrid {

/// The picture in a file, read by the installed toolkit. Only regular files behind `file:` locations are opened.
Expected<ImageRef> imageWithContentsOfURL(const Url& location);

} // namespace wallgrid
