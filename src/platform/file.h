// SPDX-License-Identifier: MIT
#pragma once

#include "platform/error.h"
#include "platform/progress.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace wallgrid {

using Bytes = std::vector<std::uint8_t>;

/// The whole of a regular file. Devices, FIFOs and folders are refused without being opened, files above 1 GiB
/// without being read.
Expected<Bytes> readFile(const std::string& path);

/// Writes a new file beside the target, flushes it to the disk and renames it over the target: whoever looks finds
/// the old file or the whole new one. A link is followed, the permissions of an existing file are kept, and anything
/// that is not a regular file is refused.
Expected<void> writeFileAtomically(const std::string& path, std::span<const std::uint8_t> bytes,
                                   const Report& report = {});

/// Writes over the file in place. When that fails the file is removed, because half of it is no file; nothing is opened
/// that is not a regular file.
Expected<void> writeFile(const std::string& path, std::span<const std::uint8_t> bytes, const Report& report = {});

} // namespace wallgrid
