// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "items/gx_still.h"
#include "picture.h"
#include "platform/file.h"
#include "psd/kp_psd_writer.h"
#include "scripted_desktop.h"

#include <sys/stat.h>

using namespace wallgrid;

namespace {

class PsdExport : public ScriptedDesktop {
protected:
    PsdExport() { delegate.applicationDidFinishLaunching(); }

    static ScreenRef screen(std::u16string label)
    {
        const ScreenRef screen = GXScreen::init();
        screen->setLabel(makeString(std::move(label)));
        return screen;
    }
    void put(ItemArray items) { delegate.setAllScreensArray(std::make_shared<ItemArray>(std::move(items))); }
    std::u16string labels() const
    {
        std::u16string text;
        for (const ItemRef& item : *delegate.allScreensArray())
            text += textOf(item->label()) + u'|';
        return text;
    }
    void compose()
    {
        delegate.setShouldUpdate(true);
        delegate.update();
    }
};

} // namespace

TEST_F(PsdExport, EveryItemTakesANumberAndTheUnnamedUseIt)
{
    choose("wall");
    delegate.savePSD();
    EXPECT_EQ(delegate.screenNumber(), 1);
    EXPECT_EQ(labels(), u"Layer 0|");
    cancel(); // names are given all the same
    put({screen(u""), screen(u"wall"), screen(u"")});
    delegate.savePSD();
    EXPECT_EQ(delegate.screenNumber(), 4);
    EXPECT_EQ(labels(), u"Untitled 4|wall|Untitled 2|");
    EXPECT_TRUE(logged.empty());
}

TEST_F(PsdExport, ItemsBecomeLayersFromTheLastRowUp)
{
    const ScreenRef top = screen(u"top"), hidden = screen(u"hidden");
    top->setXpoint(100);
    top->setYpoint(50);
    hidden->setVisible(false);
    hidden->setXpoint(-20);
    put({top, hidden});
    const auto writer = KPPSDWriter::initWithDocumentSize({1920, 1080});
    writer->addLayerWithCGImage(hidden->thumbnail()->unscaled(), hidden->label(), 0, {-20, 0});
    writer->addLayerWithCGImage(top->thumbnail()->unscaled(), top->label(), 1, {100, 50});
    const ByteBuffer expected = writer->createPSDData();
    choose("wall.psd");
    delegate.savePSD();
    const auto file = readFile(path("wall.psd.psd"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(std::ranges::equal(*file, expected));
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
        put({screen(u"under"), still});
        (*delegate.allScreensArray())[0]->setXpoint(100);
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
    const auto put = [&](const std::vector<std::u16string>& names) {
        ItemArray items;
        for (const std::u16string& name : names)
            items.push_back(screen(name));
        PsdExport::put(items);
    };
    const auto bytes = [&](bool numbers) {
        delegate.setNumbersEqualLayerNames(numbers);
        KPPSDError error;
        return delegate.createPSDData(&error);
    };
    put({u"Wall", u"logo", u"Wall 2"});
    EXPECT_FALSE(delegate.hasEqualLayerNames());
    const ByteBuffer different = bytes(false);
    EXPECT_EQ(bytes(true), different);

    const std::vector<std::u16string> equal{u"Wall", u"Wall", u"logo", u"Wall 2", u"Wall", u"logo"};
    put(equal);
    EXPECT_TRUE(delegate.hasEqualLayerNames());
    const ByteBuffer asNamed = bytes(false);
    const ByteBuffer numbered = bytes(true);
    EXPECT_EQ(labels(), u"Wall|Wall|logo|Wall 2|Wall|logo|");
    EXPECT_EQ(bytes(false), asNamed);
    put({u"Wall", u"Wall 3", u"logo", u"Wall 2", u"Wall 4", u"logo 2"});
    EXPECT_EQ(bytes(false), numbered);
    put({u"", u""}); // will be told apart by "Untitled"
    EXPECT_FALSE(delegate.hasEqualLayerNames());
}

TEST_F(PsdExport, FailuresAreLoggedAndLeaveNoFile)
{
    choose("wall");
    delegate.setOutputWidth(0);
    delegate.savePSD();
    delegate.setOutputWidth(30001);
    delegate.savePSD();
    delegate.setOutputWidth(1920);
    choose("no/such/folder");
    delegate.savePSD();
    ASSERT_EQ(::mkfifo(path("pipe.psd").c_str(), 0600), 0);
    choose("pipe");
    delegate.savePSD();
    EXPECT_EQ(logged, (std::vector<std::string>{
                          "There was an error writing the PSD: No visible layers in the document",
                          "There was an error writing the PSD: The document is too large for a PSD file",
                          path("no/such/folder.psd") + ": No such file or directory",
                          path("pipe.psd") + ": not a regular file",
                      }));
    EXPECT_FALSE(std::filesystem::exists(path("wall.psd")));
}
