// SPDX-License-Identifier: MIT
#pragma once

#include "psd/kp_psd_writer.h"

#include <cstdint>
#include <vector>

namespace wallgrid::bench {

/// The file of a filled writer made the plain way, byte for byte the same: each layer's channels are packed row by row,
/// once to learn their lengths for the layer's record and once more for the file. Layers must be plain ones at whole
/// positions, without effects, corrections or groups, with ASCII names, and the document must have transparency.
std::vector<std::uint8_t> plainPsd(KPPSDWriter& writer);

} // namespace wallgrid::bench
