// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "base/error.h"
#include "items/gx_still.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wallgrid {

/// The layers that are stills whose file could not be read.
std::vector<StillRef> missingPictures(const GXAppDelegate& delegate);

/// Looks for the files of the missing pictures by their names, in a folder and the folders in it, and puts in those
/// that it finds. Of several with one name it takes one that lies least deep. It looks at 100,000 names at most and
/// follows no links to folders. How many stills got a picture.
std::size_t findPictures(GXAppDelegate& delegate, const std::string& folder);

/// Puts the picture of a file into a still, which keeps its size; a still of size 0 gets that of the picture. The still
/// stays as it is when there is no picture.
Expected<void> changePicture(GXAppDelegate& delegate, GXStill& still, const UrlRef& location);

} // namespace wallgrid
