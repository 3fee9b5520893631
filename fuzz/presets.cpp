// SPDX-License-Identifier: MIT
//
// Any bytes as a preset file: what opens is saved, and what was saved opens again with as many presets.
#include "app/preset_file.h"
#include "fuzz/fuzz_target.h"
#include "graphics/bitmap_memory.h"

using namespace wallgrid;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    BitmapMemory::setMaximumTotal(1 << 20);
    const auto presets = readPresets(bytesOf(data, size));
    if (!presets)
        return 0;
    const Bytes saved = writePresets(*presets);
    const auto again = readPresets(saved);
    FUZZ_CHECK(again && again->size() == presets->size());
    return 0;
}
