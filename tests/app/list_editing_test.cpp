// SPDX-License-Identifier: MIT
#include "app/gx_presets.h"
#include "app/preset_file.h"
#include "app/row_drag.h"
#include "items/gx_still.h"
#include "scripted_program.h"

using namespace wallgrid;

namespace {

using ListEditing = ScriptedProgram;

} // namespace

TEST_F(ListEditing, DropsMoveInsideATableAndCopyIntoTheOther)
{
    using Case =
        std::tuple<ScriptedTable&, std::set<std::size_t>, ScriptedTable&, std::ptrdiff_t, const char*, const char*>;
    const Case cases[] = {
        {table, {0}, table, 3, "BCAD", "PQ"},
        {table, {3}, table, 0, "DABC", "PQ"},
        {table, {0}, table, 4, "BCDA", "PQ"},
        {table, {1, 3}, table, 0, "BACD", "PQ"}, // the first row only
        {ptable, {0}, ptable, 2, "ABCD", "QP"},
        {ptable, {1}, table, 0, "QABCD", "PQ"},
        {table, {0, 1}, ptable, 2, "ABCD", "PQA"},
        // Nothing to take, or nowhere to put it.
        {table, {}, table, 0, "ABCD", "PQ"},
        {ptable, {2}, table, 0, "ABCD", "PQ"},
        {table, {0}, table, 5, "ABCD", "PQ"},
    };
    for (const auto& [from, rows, to, row, newLayers, newPresets] : cases) {
        SCOPED_TRACE(newLayers);
        put("ABCD", "PQ");
        const ItemArray before = allItems();
        drag(from, rows, to, row);
        EXPECT_EQ(layers() + presets(), std::string(newLayers) + newPresets);
        const ItemArray after = allItems();
        EXPECT_EQ(std::set(after.begin(), after.end()).size(), after.size()) << "a copy is another object";
        EXPECT_TRUE(std::ranges::all_of(before, [&](auto& item) { return std::ranges::count(after, item) == 1; }));
    }
}

TEST_F(ListEditing, PresetsAreSavedAndComeBackAsNewObjects)
{
    delegate.presetScreensArray()->push_back(GXStill::initWithimage(nullptr));
    choose("my presets");
    delegate.savePresets();
    put("AB", "XYZ");
    const ItemRef selected = delegate.arraycontroller().selectedObject();
    const ImageRef rendered = selected->thumbnail();
    delegate.openPresets();
    EXPECT_NE(selected->thumbnail(), rendered) << "every change of the list renders the selected layer";
    EXPECT_EQ(names(*delegate.presetScreensArray()), "GRID|LINES|CROSS|CIRCLE||");
    EXPECT_EQ(delegate.presetScreensArray()->at(1)->ypoint(), -270);
    EXPECT_TRUE(std::dynamic_pointer_cast<GXStill>(delegate.presetScreensArray()->at(4)));
    EXPECT_EQ(delegate.presetarraycontroller().selectionIndexes(), std::set<std::size_t>{0});
    EXPECT_EQ(layers(), "AB");
    EXPECT_TRUE(recent.empty() && logged.empty());

    put("A", "PQ");
    write("project", writeProject(delegate.project()));
    for (const char* name : {"project", "gone"}) {
        choose(name);
        delegate.openPresets();
    }
    choose("no/such/folder");
    delegate.savePresets();
    EXPECT_EQ(logged.size(), 3u);
    EXPECT_EQ(presets(), "PQ");
}

TEST_F(ListEditing, GXPresetsReordersItsOwnList)
{
    const auto controller = GXPresets::init();
    controller->setPresetScreensArray(std::make_shared<ItemArray>(screens("PQR")));
    Pasteboard pasteboard;
    EXPECT_TRUE(controller->tableViewWriteRowsWithIndexes(table, {2}, pasteboard));
    EXPECT_TRUE(controller->tableViewAcceptDrop(table, pasteboard, 0, DropOperation::Above));
    EXPECT_EQ(letters(*controller->presetScreensArray()), "RPQ");
}

TEST_F(ListEditing, ThrottleRendersOnceInATenthOfASecond)
{
    runLoop.advance(1);
    delegate.update();
    const ImageRef shown = delegate.img();
    runLoop.advance(0.05);
    delegate.update();
    EXPECT_EQ(delegate.img(), shown);
    EXPECT_TRUE(delegate.hasSkippedUpdate());
    runLoop.advance(0.0501);
    EXPECT_EQ(delegate.img(), shown) << "the timer lets the next call render and renders nothing itself";
    delegate.update();
    EXPECT_NE(delegate.img(), shown);
    EXPECT_FALSE(delegate.hasSkippedUpdate());
}

TEST_F(ListEditing, ARasterThatSomebodyHoldsKeepsItsPixels)
{
    delegate.setBgColor(Color::whiteColor());
    compose();
    const BitmapRef held = delegate.offscreenRep();
    delegate.setBgColor(Color::redColor());
    compose();
    EXPECT_NE(delegate.offscreenRep(), held);
    EXPECT_EQ(held->at(0, 0), Color::whiteColor()->pixel());
}

TEST_F(ListEditing, ObservesNineteenPropertiesOfEveryItem)
{
    const ItemRef item = delegate.allScreensArray()->at(0);
    int observed = 0;
    for (const GXItem::Field& field : GXItem::fields()) {
        table.events.clear();
        item->setValue(field, item->value(field));
        // The throttle holds, so one reload comes from the handler and none from the pass.
        EXPECT_EQ(table.events, field.observed ? "reload " : "") << field.property;
        observed += field.observed;
    }
    EXPECT_EQ(observed, 19);
}
