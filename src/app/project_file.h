// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_coding.h"
#include "base/error.h"
#include "base/file.h"
#include "base/progress.h"
#include "items/gx_item.h"

#include <cstdint>

namespace wallgrid {

/// A project: the document as project files (extension "mpr") hold it. The file is a keyed archive whose root is the
/// array [output height, output width, items], the height first.
struct Project {
    std::int32_t outputHeight = 0;
    std::int32_t outputWidth = 0;
    ItemArray items;
};

/// Reads and renders every item. Fails, without having touched anything else, when the bytes are no archive, the root
/// has another shape, or an item cannot be read.
Expected<Project> readProject(Bytes bytes, const Report& report = {});

/// The file may name more objects, which whoever opens it as a project never sees.
Bytes writeProject(const Project& project, const NamedValues& beside = {});

} // namespace wallgrid
