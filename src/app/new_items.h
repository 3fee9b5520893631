// SPDX-License-Identifier: MIT
#pragma once

#include "app/project_file.h"
#include "items/gx_screen.h"

#include <cstdint>
#include <string>

namespace wallgrid {

/// A default name, "Layer 3" of "Layer " and 3.
StringRef numberedName(std::u16string prefix, std::int32_t number);

/// The screen that a new document holds and that the Add command makes.
ScreenRef makeDefaultScreen(StringRef label);

/// The document that a launch begins with: one screen in an output of 1920 × 1080. The number is the screen's.
Project makeLaunchProject(std::int32_t number);

/// Test patterns laid out for the launch raster of 1920 × 1080.
ItemArray makePresets();

} // namespace wallgrid
