// SPDX-License-Identifier: MIT
//
// Any bytes as a property list: what opens can be read to its last object.
#include "archive/dictionary_lookup.h"
#include "fuzz/archive_walk.h"
#include "fuzz/fuzz_target.h"

using namespace wallgrid;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto list = PropertyList::open(bytesOf(data, size));
    if (!list)
        return 0;
    readEverything(**list);
    DictionaryLookup lookup;
    if ((*list)->top().kind() == PlistObject::Kind::Dictionary)
        lookup.value((*list)->top(), "$objects");
    return 0;
}
