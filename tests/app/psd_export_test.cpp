// SPDX-License-Identifier: MIT
#include "base/byte_buffer.h"
#include "graphics/bitmap_memory.h"
#include "items/gx_still.h"
#include "scripted_program.h"

using namespace wallgrid;

namespace {

class PsdExport : public ScriptedProgram {
protected:
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
    answer = nullptr; // names are given all the same
    putScreens({u"", u"wall", u""});
    delegate.savePSD();
    EXPECT_EQ(delegate.screenNumber(), 4);
    EXPECT_EQ(labels(), "Untitled 4|wall|Untitled 2|");
    EXPECT_TRUE(logged.empty());
}

TEST_F(PsdExport, PictureWithoutMemoryIsNotLeftOutSilently)
{
    const auto still = GXStill::initWithimage(GXScreen::init()->thumbnail());
    still->setPanelWidth(1900); // has to be scaled
    put({screen(u"wall"), still});
    still->drawInRect();
    const std::size_t most = BitmapMemory::maximumTotal();
    BitmapMemory::setMaximumTotal(BitmapMemory::alive() + (1 << 20)); // enough for the merged image
    compose();
    KPPSDError error;
    delegate.createPSDData(&error);
    BitmapMemory::setMaximumTotal(most);
    EXPECT_EQ(error.message, "there is not enough memory for the pictures of all layers");
    EXPECT_EQ(logged, std::vector<std::string>{"there is not enough memory for all pictures; some are not shown"});
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
