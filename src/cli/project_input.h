// SPDX-License-Identifier: MIT
#pragma once

#include "app/project_file.h"

#include <string>

namespace wallgrid {

/// The project that a word on the command line names: a file, or standard input for "-". Neither has more than 1 GiB.
Expected<Project> readProjectInput(const std::string& file);

} // namespace wallgrid
