// SPDX-License-Identifier: MIT
//
// Any bytes as an archive: every object in reach of the root is read as each kind that there is, and a colour that
// was read is archived again and opens again.
#include "archive/keyed_archiver.h"
#include "archive/keyed_decoder.h"
#include "fuzz/fuzz_target.h"

using namespace wallgrid;

namespace {

constexpr int kDeepest = 3;

void readRecord(const ArchivedObject& object)
{
    for (const char* key : {"col", "NSRangeCount"})
        KeyedDecoder(object).decodeInt(key);
    KeyedDecoder(object).decodeBool("visible");
    KeyedDecoder(object).decodeData("NSRangeData");
    for (const char* key : {"label", "NS.relative"})
        KeyedDecoder(object).decodeString(key);
    for (const char* key : {"rectcolor", "NSColor"}) {
        if (const ColorRef color = KeyedDecoder(object).decodeColor(key)) {
            color->pixel();
            FUZZ_CHECK(KeyedUnarchiver::rootObject(KeyedArchiver::archivedDataWithRootObject(color)));
        }
    }
    for (const char* key : {"imageURL", "NS.base"}) {
        if (const UrlRef url = KeyedDecoder(object).decodeUrl(key))
            url->filePath();
    }
}

void read(const ArchivedObject& object, int depth)
{
    object.className();
    object.intValue();
    readRecord(object);
    const auto elements = object.elements();
    for (std::size_t i = 0; elements && depth < kDeepest && i < elements->size() && i < 16; ++i)
        read((*elements)[i], depth + 1);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (const auto root = KeyedUnarchiver::rootObject(bytesOf(data, size)))
        read(*root, 0);
    return 0;
}
