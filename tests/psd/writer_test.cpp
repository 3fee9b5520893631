// SPDX-License-Identifier: MIT
#include "base/byte_sink.h"
#include "graphics/bitmap_memory.h"
#include "hex.h"
#include "picture.h"
#include "psd/kp_psd_writer.h"

#include <bit>
#include <gtest/gtest.h>
#include <random>
#include <vector>

using namespace wallgrid;
using test::hex;

namespace {

const StringRef kName = makeString(u"abc");

struct Kept final : ByteSink {
    Expected<void> append(std::span<const std::uint8_t> bytes) override
    {
        EXPECT_LE(file.size(), most) << "there was an error already";
        wallgrid::append(file, bytes);
        return file.size() > most ? failure("full") : Expected<void>();
    }
    Expected<void> replace(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        EXPECT_LE(file.size(), most);
        std::ranges::copy(bytes, file.data() + offset);
        return {};
    }

    ByteBuffer file;
    std::size_t most = SIZE_MAX;
};

/// The file, of which an error is a failure; a sink must get the same.
ByteBuffer fileOf(KPPSDWriter& writer)
{
    KPPSDError error;
    ByteBuffer file = writer.createPSDDataWithError(&error);
    EXPECT_FALSE(error) << error.message;
    Kept kept;
    writer.writePSDOn(kept, &error);
    EXPECT_FALSE(error) << error.message;
    EXPECT_TRUE(kept.file == file);
    const auto number = [&](std::size_t at) {
        return file[at] << 24 | file[at + 1] << 16 | file[at + 2] << 8 | file[at + 3];
    };
    EXPECT_EQ(number(80) % 2, 0) << "the layers fill whole words";
    EXPECT_EQ(number(76), number(80) + 4);
    return file;
}

std::string errorOf(KPPSDWriter& writer, std::size_t most = SIZE_MAX)
{
    KPPSDError error;
    EXPECT_TRUE(most < SIZE_MAX || writer.createPSDDataWithError(&error).empty());
    Kept kept;
    kept.most = most;
    writer.writePSDOn(kept, &error);
    return std::to_string(error.code) + " " + error.message;
}

} // namespace

TEST(Writer, WritesASmallFileWhole)
{
    const auto writer = KPPSDWriter::initWithDocumentSize({3, 2});
    writer->addLayerWithCGImage(test::picture({"RG"}), kName, 0.5, {1, 1});
    writer->setDocumentResolution({72, 73});
    const ByteBuffer file = fileOf(*writer);
    EXPECT_EQ(hex(file),
              "38 42 50 53 00 01 00 00 00 00 00 00 00 04 00 00 00 02 00 00 00 03 00 08 00 03 " // header
              // colour mode data, resolution and layer state
              "00 00 00 00 00 00 00 2A "
              "38 42 49 4D 03 ED 00 00 00 00 00 10 00 48 00 00 00 01 00 01 00 49 00 00 00 01 00 01 "
              "38 42 49 4D 04 00 00 00 00 00 00 02 00 00 "
              // section and layer information, one layer
              "00 00 00 96 00 00 00 92 00 01 "
              "00 00 00 00 00 00 00 00 00 00 00 02 00 00 00 03 00 04 "
              "00 00 00 00 00 0D 00 01 00 00 00 0D 00 02 00 00 00 0D FF FF 00 00 00 0D "
              "38 42 49 4D 6E 6F 72 6D 80 00 00 00 00 00 00 22 00 00 00 00 00 00 00 00 "
              "03 61 62 63 38 42 49 4D 6C 75 6E 69 00 00 00 0A 00 00 00 03 00 61 00 62 00 63 "
              "00 01 00 02 00 05 FE 00 00 00 01 FF 00 "
              "00 01 00 02 00 05 FE 00 00 00 01 00 FF "
              "00 01 00 02 00 05 FE 00 00 00 01 00 00 "
              "00 01 00 02 00 05 FE 00 00 00 01 FF FF "
              // merged image: lengths of all rows, then the rows
              "00 01 00 02 00 04 00 02 00 04 00 02 00 02 00 02 00 04 "
              "FE 00 02 00 80 00 FE 00 02 00 00 80 FE 00 FE 00 FE 00 02 00 80 80");
    EXPECT_EQ(fileOf(*writer), file);
}

TEST(Writer, RefusesWhatIsNoFile)
{
    const std::string noLayers = "2 No visible layers in the document";
    const std::string notPrepared = "4 There is no merged image of the document's size";
    const std::string notWhole = "8 The document's size is not a whole number of pixels";
    const std::string tooLarge = "5 The document is too large for a PSD file";
    const auto writer = KPPSDWriter::init();
    const auto layer = writer->addLayerWithCGImage(test::picture({"R"}), kName);
    EXPECT_EQ(errorOf(*writer), noLayers);
    writer->addLayerWithCGImage(nullptr, kName);
    for (const auto& [size, expected] : std::vector<std::pair<Size, std::string>>{
             {{-5, 5}, noLayers}, {{0.5, 0.5}, notWhole}, {{30001, 1}, tooLarge}, {{1, 1e300}, tooLarge}}) {
        writer->setDocumentSize(size);
        EXPECT_EQ(errorOf(*writer), expected) << size.width;
    }
    writer->setDocumentSize({2, 2});
    layer->setVisibleImageData(test::picture({"RR"}));
    EXPECT_EQ(errorOf(*writer), "4 The pixels of a layer are more or fewer than it shows");
    layer->setVisibleImageData(nullptr);
    EXPECT_FALSE(fileOf(*writer).empty());
    writer->setFlattenedContext(nullptr);
    for (const BitmapRef& merged : {BitmapRef(), test::picture({"RRR"})}) {
        writer->setFlattenedData(merged);
        EXPECT_EQ(errorOf(*writer), notPrepared);
    }

    const BitmapRef pixels = test::picture({"RG"});
    const std::size_t most = BitmapMemory::maximumTotal();
    BitmapMemory::setMaximumTotal(0);
    const auto refused = KPPSDWriter::initWithDocumentSize({4, 4});
    refused->addLayerWithCGImage(pixels, kName, 1, {2.5, 0}); // has to be scaled
    refused->addLayerWithCGImage(pixels, kName);
    BitmapMemory::setMaximumTotal(most);
    EXPECT_EQ(errorOf(*refused), "4 There is not enough memory to write the document");

    // 4 GiB of blank rows, known without packing one of them; and one marker more than can be counted.
    const auto huge = KPPSDWriter::initWithDocumentSize({}), many = KPPSDWriter::initWithDocumentSize({1, 1});
    for (int i = 0; i < 80; ++i)
        huge->addLayerWithCGImage(test::picture({"R"}), kName);
    huge->setDocumentSize({30000, 30000});
    EXPECT_EQ(errorOf(*huge), tooLarge);
    for (int i = 0; i < 16384; ++i)
        many->openGroupLayerWithName(kName);
    EXPECT_EQ(errorOf(*many), tooLarge);
}

TEST(Writer, HandsLargeFilesOverInPieces)
{
    const auto writer = KPPSDWriter::initWithDocumentSize({1200, 900});
    const BitmapRef noise = Bitmap::create(700, 700);
    std::generate_n(noise->pixels(), 700 * 700, [random = std::minstd_rand()]() mutable {
        return std::bit_cast<Pixel>(static_cast<std::uint32_t>(random()));
    });
    writer->addLayerWithCGImage(noise, kName, 1, {400, 70}); // ends where a band of the merged image does
    writer->addLayerWithCGImage(test::picture({"RG"}), kName, 1, {1199, 899});
    const ByteBuffer file = fileOf(*writer);
    const std::size_t size = file.size();
    EXPECT_GT(size, 3U << 20);
    for (const std::size_t most : {std::size_t{0}, size / 2, size - 1})
        EXPECT_EQ(errorOf(*writer, most), "7 full");
    writer->flattenedContext(); // makes one bitmap of the bands
    EXPECT_TRUE(fileOf(*writer) == file);

    double last = 0, longest = 0;
    const auto stoppedAt = [&](double most) {
        last = longest = 0;
        writer->setReport([&, most](double done) {
            longest = std::max(longest, done - last);
            last = done;
            return done < most;
        });
        return errorOf(*writer, size)[0];
    };
    EXPECT_EQ(stoppedAt(1.1), '0');
    EXPECT_GT(last, 0.95) << "the merged image is told of";
    EXPECT_LT(longest, 0.1) << "and what is done of a layer";
    for (const double most : {0.3, 0.95})
        EXPECT_EQ(stoppedAt(most), '6') << most;
}
