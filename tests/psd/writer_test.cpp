// SPDX-License-Identifier: MIT
#include "hex.h"
#include "picture.h"
#include "platform/bitmap_memory.h"
#include "platform/byte_sink.h"
#include "psd/kp_psd_writer.h"

#include <bit>
#include <gtest/gtest.h>
#include <numeric>
#include <stdexcept>

using namespace wallgrid;
using test::hex;

namespace {

StringRef name(std::u16string text)
{
    return makeString(std::move(text));
}

std::string part(const ByteBuffer& file, std::size_t begin, std::size_t length)
{
    return hex(std::span(file).subspan(begin, length));
}

std::uint64_t number(const ByteBuffer& file, std::size_t at)
{
    const auto bytes = std::span(file).subspan(at, 4);
    return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{0},
                           [](std::uint64_t high, std::uint8_t byte) { return high << 8 | byte; });
}

/// Keeps what it is given, up to so many bytes.
class Kept final : public ByteSink {
public:
    explicit Kept(std::size_t most = SIZE_MAX)
        : m_most(most)
    {
    }

    Expected<void> append(std::span<const std::uint8_t> bytes) override
    {
        EXPECT_FALSE(m_failed);
        m_failed = file.size() + bytes.size() > m_most;
        wallgrid::append(file, bytes);
        return m_failed ? failure("full") : Expected<void>();
    }
    Expected<void> replace(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        EXPECT_FALSE(m_failed);
        std::ranges::copy(bytes, std::span(file).subspan(offset, bytes.size()).begin());
        return {};
    }

    ByteBuffer file;

private:
    std::size_t m_most;
    bool m_failed = false;
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
    return file;
}

std::string errorOf(KPPSDWriter& writer)
{
    KPPSDError error;
    EXPECT_EQ(writer.createPSDDataWithError(&error).size(), 0U);
    return std::to_string(error.code) + " " + error.message;
}

} // namespace

TEST(Writer, WritesASmallFileWhole)
{
    const auto writer = KPPSDWriter::initWithDocumentSize({3, 2});
    writer->addLayerWithCGImage(test::picture({"RG"}), name(u"abc"), 0.5, {1, 1});
    const ByteBuffer file = fileOf(*writer);
    EXPECT_EQ(hex(file),
              "38 42 50 53 00 01 00 00 00 00 00 00 00 04 00 00 00 02 00 00 00 03 00 08 00 03 " // header
              // colour mode data, resolution and layer state
              "00 00 00 00 00 00 00 2A "
              "38 42 49 4D 03 ED 00 00 00 00 00 10 00 48 00 00 00 01 00 01 00 48 00 00 00 01 00 01 "
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

TEST(Writer, LayerSectionsAreEven)
{
    for (const int width : {1, 2, 3, 4, 5}) {
        const auto writer =
            KPPSDWriter::initWithDocumentSize({static_cast<double>(width), 1}, false, KPPSDWriter::Layers());
        writer->addLayerWithCGImage(test::picture({"R"}), name(u"a"));
        const ByteBuffer file = fileOf(*writer);
        EXPECT_EQ(number(file, 80) % 2, 0U);
        EXPECT_EQ(number(file, 76), number(file, 80) + 4);
        EXPECT_EQ(part(file, 80 + 4 + number(file, 80), 2), "00 01");
    }
}

TEST(Writer, ComposesTheMergedImage)
{
    const auto writer = KPPSDWriter::initWithDocumentSize({4, 3});
    writer->addLayerWithCGImage(test::picture({"RR", "RR"}), name(u"a"), 1, {1, 1});
    writer->addLayerWithCGImage(test::picture({"BBB"}), name(u"hidden"), 0, {0, 0});
    writer->addLayerWithCGImage(test::picture({"WGG"}), name(u"b"), 1, {2, 2});
    writer->addLayerWithCGImage(test::picture({"K"}), name(u"outside"), 1, {9, 9});
    EXPECT_EQ(writer->visibleLayers().size(), 3U);
    // What was taken for a file does not change when another layer is drawn.
    EXPECT_TRUE(writer->preprocess());
    const BitmapRef taken = writer->flattenedData();
    writer->addLayerWithCGImage(test::picture({"KKKK"}), name(u"c"), 1, {0, 0});
    EXPECT_TRUE(test::samePicture(taken, test::picture({"....", ".RR.", ".RWG"})));
    EXPECT_TRUE(test::samePicture(writer->flattenedContext(), test::picture({"KKKK", ".RR.", ".RWG"})));
    writer->setDocumentSize({3, 3});
    EXPECT_TRUE(test::samePicture(writer->flattenedContext(), test::picture({"KKK", ".RR", ".RW"})))
        << "another size composes all of them again";

    const auto opaque = KPPSDWriter::initWithDocumentSize({2, 2}, false, {writer->layers()[0]});
    EXPECT_TRUE(test::samePicture(opaque->flattenedContext(), test::picture({"WW", "WR"})));
    EXPECT_EQ(opaque->layers()[0]->documentSize(), (Size{2, 2}));
    EXPECT_THROW(opaque->setLayers({nullptr}), std::invalid_argument);
}

TEST(Writer, MergedImageTakesNoMemoryUntilItIsAskedFor)
{
    const BitmapRef half = test::randomPicture(20, 10, 1), other = test::randomPicture(30, 20, 2);
    const auto writer = KPPSDWriter::initWithDocumentSize({3000, 2000});
    const std::size_t most = BitmapMemory::maximumTotal();
    BitmapMemory::setMaximumTotal(BitmapMemory::alive() + (1 << 20));
    writer->addLayerWithCGImage(half, name(u"half"), 0.5, {7, 1995});
    EXPECT_FALSE(fileOf(*writer).empty());
    EXPECT_EQ(writer->flattenedContext(), nullptr);
    writer->addLayerWithCGImage(other, name(u"second"), 1, {4, 1990});
    BitmapMemory::setMaximumTotal(BitmapMemory::alive());
    const std::string noMemory = "4 There is not enough memory to write the document";
    EXPECT_EQ(errorOf(*writer), noMemory) << "not the first file again";
    writer->addLayerWithCGImage(other, name(u"scaled"), 1, {-4.5, 0});
    BitmapMemory::setMaximumTotal(most);
    EXPECT_EQ(errorOf(*writer), noMemory) << "the last layer could not be drawn";
    writer->resetFlattenedContext();
    const auto again = KPPSDWriter::initWithDocumentSize({3000, 2000}, true, writer->layers());
    EXPECT_NE(again->flattenedContext(), nullptr); // composed as a whole
    EXPECT_TRUE(fileOf(*writer) == fileOf(*again));
}

TEST(Writer, PairsGroupsInnermostFirst)
{
    const auto writer = KPPSDWriter::initWithDocumentSize({2, 2});
    const auto a = writer->openGroupLayerWithName(name(u"A"), 0.5, true);
    const auto b = writer->openGroupLayerWithName(name(u"B"));
    EXPECT_EQ(writer->closeCurrentGroupLayer()->groupOpeningLayer(), b);
    // A is left open: the file closes it, once, also when it is made again.
    const ByteBuffer file = fileOf(*writer);
    EXPECT_EQ(fileOf(*writer), file);
    ASSERT_EQ(writer->layers().size(), 4U);
    EXPECT_EQ(std::dynamic_pointer_cast<KPPSDGroupClosingLayer>(writer->layers()[3])->groupOpeningLayer(), a);
    KPPSDError error;
    EXPECT_EQ(writer->closeCurrentGroupLayerWithError(&error), nullptr);
    EXPECT_EQ(error.code, 3);
    EXPECT_EQ(error.message, "There is no opened layer to close");
    EXPECT_EQ(part(file, 84, 2), "00 04");
    auto stray = writer->layers();
    stray.push_back(KPPSDGroupClosingLayer::init());
    writer->setLayers(stray);
    EXPECT_TRUE(writer->preprocess());
    EXPECT_EQ(writer->layers().size(), 5U); // more closed than opened adds nothing
}

TEST(Writer, RefusesWhatIsNoFile)
{
    const auto writer = KPPSDWriter::init();
    const auto layer = writer->addLayerWithCGImage(test::picture({"R"}), name(u"a"));
    KPPSDError error;
    EXPECT_FALSE(writer->addLayerToFlattenedContext(layer, &error));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.message, "You must specify a non-zero documentSize before adding a layer");
    EXPECT_EQ(errorOf(*writer), "2 No visible layers in the document");
    writer->addLayerWithCGImage(nullptr, name(u"no image"));
    for (const Size outside : {Size{-5, 5}, Size{5, -5}, Size{-1, -1}}) {
        writer->setDocumentSize(outside);
        EXPECT_EQ(errorOf(*writer), "2 No visible layers in the document");
    }

    const std::string notPrepared = "4 There is no merged image of the document's size";
    const std::string tooLarge = "5 The document is too large for a PSD file";
    writer->setDocumentSize({0.5, 0.5});
    EXPECT_EQ(errorOf(*writer), notPrepared);
    writer->setDocumentSize({30001, 1});
    EXPECT_EQ(errorOf(*writer), tooLarge);
    writer->setDocumentSize({1, 1e300});
    EXPECT_EQ(errorOf(*writer), tooLarge);
    writer->setDocumentSize({2, 2});
    EXPECT_FALSE(fileOf(*writer).empty());
    writer->setFlattenedContext(nullptr);
    writer->setFlattenedData(nullptr);
    EXPECT_EQ(errorOf(*writer), notPrepared);
    writer->setFlattenedData(test::picture({"RRR"}));
    EXPECT_EQ(errorOf(*writer), notPrepared);

    // 4 GiB of blank rows, known without packing one of them.
    const auto huge = KPPSDWriter::initWithDocumentSize({});
    for (int i = 0; i < 80; ++i)
        huge->addLayerWithCGImage(test::picture({"R"}), name(u"a"));
    huge->setDocumentSize({30000, 30000});
    EXPECT_EQ(errorOf(*huge), tooLarge);
    const auto many = KPPSDWriter::initWithDocumentSize({1, 1});
    for (int i = 0; i < 16384; ++i)
        many->openGroupLayerWithName(name(u""));
    EXPECT_EQ(errorOf(*many), tooLarge);
}

TEST(Writer, HandsLargeFilesOverInPieces)
{
    const auto writer = KPPSDWriter::initWithDocumentSize({1500, 1200});
    const BitmapRef noise = Bitmap::create(1000, 1000);
    std::uint32_t state = 1;
    for (int y = 0; y < noise->height(); ++y)
        for (Pixel& pixel : noise->row(y))
            pixel = std::bit_cast<Pixel>(state = state * 1664525 + 1013904223);
    writer->addLayerWithCGImage(noise, name(u"noise"), 1, {400, 30});
    writer->addLayerWithCGImage(test::picture({"RG"}), name(u"small"), 1, {1499, 1199});
    const std::size_t size = fileOf(*writer).size();
    EXPECT_GT(size, 4U << 20);

    for (const std::size_t most : {std::size_t{0}, size / 2, size - 1}) {
        Kept kept(most);
        KPPSDError error;
        writer->writePSDOn(kept, &error);
        EXPECT_EQ(std::to_string(error.code) + " " + error.message, "7 full");
    }
}
