// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "picture.h"
#include "psd/kp_psd_writer.h"
#include "scripted_desktop.h"

using namespace wallgrid;

namespace {

class PsdExport : public ScriptedDesktop {
protected:
    PsdExport() { delegate.applicationDidFinishLaunching(); }

    void putScreens(const std::vector<std::u16string>& labels)
    {
        ItemArray items;
        for (const std::u16string& label : labels)
            items.push_back(screen(label));
        put(std::move(items));
    }
    std::string labels() const { return names(*delegate.allScreensArray()); }
    ByteBuffer bytes(bool numbersEqualNames)
    {
        delegate.setNumbersEqualLayerNames(numbersEqualNames);
        return delegate.createPSDData(nullptr);
    }
};

} // namespace

TEST_F(PsdExport, EveryItemTakesANumberAndTheUnnamedUseIt)
{
    choose("wall");
    delegate.savePSD();
    EXPECT_EQ(delegate.screenNumber(), 1);
    EXPECT_EQ(labels(), "Layer 0|");
    cancel(); // names are given all the same
    putScreens({u"", u"wall", u""});
    delegate.savePSD();
    EXPECT_EQ(delegate.screenNumber(), 4);
    EXPECT_EQ(labels(), "Untitled 4|wall|Untitled 2|");
    EXPECT_TRUE(logged.empty());
}

TEST_F(PsdExport, StillsAreScaledAsTheCompositionScalesThem)
{
    delegate.setOutputWidth(8);
    delegate.setOutputHeight(6);
    const BitmapRef pixels = test::randomPicture(10, 10, 7);
    for (int y = 0; y < 10; ++y) {
        for (Pixel& pixel : pixels->row(y))
            pixel.a = 255;
    }
    const auto image = std::make_shared<Image>(Size{5, 5});
    image->addRepresentation(pixels);
    const StillRef still = GXStill::initWithimage(image);
    still->setLabel(makeString(u"logo"));
    for (const auto& [x, y] : {std::pair{1, 0}, std::pair{-2, 3}, std::pair{6, -1}, std::pair{20, 0}}) {
        still->setXpoint(x);
        still->setYpoint(y);
        put({still});
        compose();
        // The part of the raster that the still covers, all opaque, as a layer of its own.
        const int left = std::max(x, 0), above = std::max(y, 0);
        const BitmapRef part = Bitmap::create(std::min(x + 5, 8) - left, std::min(y + 5, 6) - above);
        for (int row = 0; part && row < part->height(); ++row) {
            for (int column = 0; column < part->width(); ++column)
                part->row(row)[static_cast<std::size_t>(column)] =
                    delegate.offscreenRep()->at(left + column, above + row);
        }
        const auto writer = KPPSDWriter::initWithDocumentSize({8, 6});
        writer->addLayerWithCGImage(part, still->label(), 1, {double(left), double(above)});
        KPPSDError error;
        EXPECT_EQ(delegate.createPSDData(&error), writer->createPSDData()) << x << ", " << y;
        EXPECT_EQ(bool(error), part == nullptr);
    }
}

TEST_F(PsdExport, EqualNamesAreNumberedInTheFileOnly)
{
    putScreens({u"Wall", u"logo", u"Wall 2"});
    EXPECT_FALSE(delegate.hasEqualLayerNames());
    EXPECT_EQ(bytes(true), bytes(false));

    const std::u16string pair = u"\U0001F600", longest = std::u16string(239, u'x') + pair;
    putScreens({u"Wall", u"Wall", u"logo", u"Wall 2", u"Wall", u"logo", longest, longest});
    EXPECT_TRUE(delegate.hasEqualLayerNames());
    const ByteBuffer asNamed = bytes(false);
    const ByteBuffer numbered = bytes(true);
    EXPECT_NE(numbered, asNamed);
    putScreens({u"Wall", u"Wall 3", u"logo", u"Wall 2", u"Wall 4", u"logo 2", longest, longest.substr(0, 239) + u" 2"});
    EXPECT_EQ(bytes(false), numbered);
    putScreens({u"", u""}); // will be told apart by "Untitled"
    EXPECT_FALSE(delegate.hasEqualLayerNames());
}

TEST_F(PsdExport, FailuresAreLoggedAndLeaveNoFile)
{
    choose("wall");
    delegate.setOutputWidth(0);
    delegate.savePSD();
    EXPECT_EQ(logged,
              std::vector<std::string>{"There was an error writing the PSD: No visible layers in the document"});
    EXPECT_FALSE(std::filesystem::exists(path("wall.psd")));
}
