// SPDX-License-Identifier: MIT
//
// psd_memory WIDTH HEIGHT SCREENS: makes the PSD of such a document and prints the most memory that the process took
// for it, and how much it had to have: the file, the merged image, the items' pictures and the largest layer's
// channels. A process of its own, because the peak that the kernel tells is that of a whole process.
#include "documents.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>

using namespace wallgrid;

namespace {

std::uint64_t bytesOf(const Bitmap& bitmap)
{
    return bitmap.bytesPerRow() * static_cast<std::uint64_t>(bitmap.height());
}

/// What making the document took before does not count.
void forgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << 5;
}

std::uint64_t peak()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::uint64_t kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes)
            return kibibytes * 1024;
    }
    std::cerr << "The kernel does not tell the peak\n";
    std::exit(1);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    bench::Document document(std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]));
    forgetPeak();
    const auto writer = document.psdWriter();
    const ByteBuffer file = writer->createPSDData();
    const std::uint64_t taken = peak();

    std::uint64_t needed = file.size() + bytesOf(*writer->flattenedData());
    for (const ItemRef& item : *document.delegate().allScreensArray())
        needed += bytesOf(*item->thumbnail()->firstRepresentation());
    std::uint64_t largestLayer = 0;
    for (const auto& layer : writer->layers()) {
        ByteBuffer channels;
        layer->writeLayerChannelsOn(channels);
        largestLayer = std::max<std::uint64_t>(largestLayer, channels.size());
    }
    std::cout << taken << ' ' << needed + largestLayer << '\n';
}
