// SPDX-License-Identifier: MIT
#include "app/arrangement.h"
#include "app/layer_copies.h"
#include "app/overlaps.h"
#include "scripted_program.h"

#include <algorithm>
#include <random>

using namespace wallgrid;

namespace {

ScreenRef wall(std::u16string name, int x, int y, int width, int height)
{
    const auto red = Color::redColor();
    auto wall = GXScreen::initWithrow(1, 1, width, height, red, red, red, 5, false, true, makeString(std::move(name)),
                                      false, x, y);
    wall->setXYFontEnable(true);
    wall->drawInRect();
    return wall;
}

/// Three walls, all selected, in an output of 200 × 100.
class LayerCommands : public ScriptedProgram {
protected:
    LayerCommands()
    {
        delegate.setOutputWidth(200);
        delegate.setOutputHeight(100);
        reset();
    }
    void reset()
    {
        put({wall(u"W08", 10, 5, 30, 20), wall(u"Logo", 100, 50, 11, 8), wall(u"", 47, -40, 20, 30)});
        delegate.arraycontroller().setSelectionIndexes({0, 1, 2});
    }
    /// Name and place of every layer, a selected one with a star.
    std::string layers() const
    {
        std::string text;
        for (std::size_t row = 0; const ItemRef& item : *delegate.allScreensArray()) {
            text += delegate.arraycontroller().selectionIndexes().contains(row++) ? "*" : "";
            text += toUtf8(textOf(item->label())) + "@" + std::to_string(item->xpoint()) + "," +
                    std::to_string(item->ypoint()) + " ";
        }
        return text;
    }
};

} // namespace

TEST_F(LayerCommands, AlignDistributeAndPlaceInRows)
{
    const PixelRect around = placeAround(selectedLayers(delegate));
    EXPECT_EQ(around, (PixelRect{10, -40, 101, 98}));
    const ImageRef picture = delegate.allScreensArray()->at(1)->picture();
    alignLayers(delegate, Direction::Across, Edge::Near, around);
    EXPECT_NE(delegate.allScreensArray()->at(1)->picture(), picture) << "it says where the wall was";
    alignLayers(delegate, Direction::Down, Edge::Far, around);
    EXPECT_EQ(layers(), "*W08@10,38 *Logo@10,50 *@10,28 ");
    alignLayers(delegate, Direction::Across, Edge::Middle, {0, 0, 25, 100});
    alignLayers(delegate, Direction::Down, Edge::Near, {0, 0, 200, 100});
    EXPECT_EQ(layers(), "*W08@-3,0 *Logo@7,0 *@2,0 ");
    delegate.allScreensArray()->at(1)->setPanelHeight(9);
    delegate.allScreensArray()->at(1)->drawInRect();
    distributeLayers(delegate, Direction::Down); // they overlap, and do so evenly afterwards
    EXPECT_EQ(layers(), "*W08@-3,-5 *Logo@7,0 *@2,0 ");
    reset();
    distributeLayers(delegate, Direction::Across); // 40 pixels in two gaps
    EXPECT_EQ(layers(), "*W08@10,5 *Logo@100,50 *@60,-40 ");
    placeInRows(delegate, {2, 64, -3});
    EXPECT_EQ(layers(), "*W08@10,5 *Logo@104,5 *@10,22 ");
    placeInRows(delegate, {1, 0, -3});
    EXPECT_EQ(layers(), "*W08@10,5 *Logo@10,22 *@10,27 ");
    delegate.arraycontroller().setSelectionIndexes({1, 2});
    distributeLayers(delegate, Direction::Across);
    placeInRows(delegate, {1, 0, std::int64_t{1} << 40});
    EXPECT_EQ(layers(), "W08@10,5 *Logo@10,22 *@10,2147483647 ");
}

TEST_F(LayerCommands, CopiesStandBesideWithTheNextNames)
{
    delegate.arraycontroller().setSelectionIndexes({1, 2});
    const ImageRef original = delegate.allScreensArray()->at(1)->picture();
    duplicateLayers(delegate); // no room to the right, room below
    EXPECT_EQ(layers(), "W08@10,5 *Logo 2@164,50 *@111,-40 Logo@100,50 @47,-40 ");
    EXPECT_NE(delegate.allScreensArray()->at(1)->picture(), original);
    reset();
    delegate.arraycontroller().setSelectionIndexes({1});
    delegate.setOutputWidth(121);
    duplicateLayers(delegate);
    EXPECT_EQ(layers(), "W08@10,5 *Logo 2@100,58 Logo@100,50 @47,-40 ");
    delegate.setOutputHeight(60);
    duplicateLayers(delegate); // no room
    EXPECT_EQ(layers(), "W08@10,5 *Logo 3@111,58 Logo 2@100,58 Logo@100,50 @47,-40 ");
    reset();
    delegate.arraycontroller().setSelectionIndexes({0});
    makeArray(delegate, {2, 2, 64, -1});
    EXPECT_EQ(layers(), "*W08@10,5 *W09@104,5 *W10@10,24 *W11@104,24 Logo@100,50 @47,-40 ");
    const std::string before = layers();
    makeArray(delegate, {ArrayLayout::kMostCopies, 2, 0, 0});
    makeArray(delegate, {0, 5, 0, 0});
    EXPECT_EQ(layers(), before);
    pasteLayers(delegate, {wall(u"W11", 1, 1, 9, 9), wall(u"New", 2, 2, 9, 9)});
    EXPECT_TRUE(layers().starts_with("*W12@1,1 *New@2,2 W08@10,5 W09@")) << layers();
    pasteLayers(delegate, {wall(u"New", 2, 2, 9, 9)});
    EXPECT_TRUE(layers().starts_with("*New 2@11,2 W12@1,1 ")) << layers();
}

TEST_F(LayerCommands, OverlapsAreThoseOfEachPairByItself)
{
    std::mt19937 random(7);
    for (int round = 0; round < 100; ++round) {
        ItemArray items;
        for (int i = 0; i < 12; ++i) {
            const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
            items.push_back(wall(u"", below(20) - 5, below(20) - 5, 1 + below(9), 5 + below(5)));
            items.back()->setVisible(random() % 8 != 0);
        }
        Overlaps expected;
        for (std::size_t i = 0; i < items.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                if (items[i]->visible() && items[j]->visible() &&
                    !intersection(items[i]->frame(), items[j]->frame()).empty()) {
                    ++expected.pairs;
                    expected.rows.insert({i, j});
                }
            }
        }
        const Overlaps found = findOverlaps(items);
        EXPECT_EQ(found.pairs, expected.pairs);
        EXPECT_EQ(found.rows, expected.rows);
    }
}
