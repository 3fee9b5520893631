// SPDX-License-Identifier: MIT
//
// psd_memory WIDTH HEIGHT SCREENS: makes the PSD of such a document and prints how many bytes of memory that took at
// its peak, and how many it had to take: the file, and the channels of the largest layer or of the merged image while
// they are packed. The items' pictures, which are there before, count on both sides; what else the
// process had before does not. A process of its own, because the kernel tells the peak of a whole process.
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

/// A line of the kernel's report on this process.
std::uint64_t memory(const std::string& line)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::uint64_t kibibytes = 0;
        if (word == line && status >> kibibytes)
            return kibibytes * 1024;
    }
    std::cerr << "The kernel does not tell " << line << '\n';
    std::exit(1);
}

std::uint64_t channelsOf(const KPPSDLayer& layer)
{
    ByteBuffer channels;
    layer.writeLayerChannelsOn(channels);
    return channels.size();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    bench::Document document(std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]));
    std::uint64_t pictures = 0;
    for (const ItemRef& item : *document.delegate().allScreensArray())
        pictures += bytesOf(*item->thumbnail()->firstRepresentation());

    forgetPeak();
    const std::uint64_t before = memory("VmRSS:");
    const auto writer = document.psdWriter();
    const ByteBuffer file = writer->createPSDData();
    const std::uint64_t taken = memory("VmHWM:") - before;

    const auto merged = KPPSDLayer::init();
    merged->setDocumentSize(writer->documentSize());
    merged->setImage(writer->flattenedData());
    std::uint64_t largest = channelsOf(*merged);
    for (const auto& layer : writer->layers())
        largest = std::max(largest, channelsOf(*layer));
    const std::uint64_t needed = file.size() + largest;
    std::cout << pictures + taken << ' ' << pictures + needed << '\n';
}
