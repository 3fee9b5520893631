// SPDX-License-Identifier: MIT
#include "app/gx_presets.h"
#include "app/preset_file.h"
#include "app/row_drag.h"
#include "items/gx_still.h"
#include "list_fixture.h"

using namespace wallgrid;

namespace {

using ListEditing = ListFixture;
const std::string kRefusal = "List Cannot be empty, Function was cancelled|";

} // namespace

TEST_F(ListEditing, DropsMoveInsideATableAndCopyIntoTheOther)
{
    struct Case {
        ScriptedTable& from;
        std::set<std::size_t> rows;
        ScriptedTable& to;
        std::ptrdiff_t row;
        const char* layers;
        const char* presets;
    };
    const Case cases[] = {
        {table, {0}, table, 3, "BCAD", "PQ"},
        {table, {3}, table, 0, "DABC", "PQ"},
        {table, {1}, table, 1, "ABCD", "PQ"},
        {table, {1}, table, 2, "ABCD", "PQ"},
        {table, {0}, table, 4, "BCDA", "PQ"},
        {table, {1, 3}, table, 0, "BACD", "PQ"}, // the first row only
        {ptable, {0}, ptable, 2, "ABCD", "QP"},
        {ptable, {1}, table, 0, "QABCD", "PQ"},
        {table, {0, 1}, ptable, 2, "ABCD", "PQA"},
        // Nothing to take, or nowhere to put it.
        {table, {}, table, 0, "ABCD", "PQ"},
        {table, {4}, table, 0, "ABCD", "PQ"},
        {ptable, {2}, table, 0, "ABCD", "PQ"},
        {table, {0}, table, 5, "ABCD", "PQ"},
        {table, {0}, table, -1, "ABCD", "PQ"},
        {table, {0}, ptable, 3, "ABCD", "PQ"},
    };
    for (const Case& each : cases) {
        put("ABCD", "PQ");
        const ItemArray before = allItems();
        drag(each.from, each.rows, each.to, each.row);
        EXPECT_EQ(layers(), each.layers) << each.from.name << " to " << each.to.name << " row " << each.row;
        EXPECT_EQ(presets(), each.presets) << each.from.name << " to " << each.to.name << " row " << each.row;
        const ItemArray after = allItems();
        EXPECT_EQ(std::set(after.begin(), after.end()).size(), after.size()) << "a copy is another object";
        EXPECT_TRUE(std::ranges::all_of(before, [&](auto& item) { return std::ranges::count(after, item) == 1; }));
    }
}

TEST_F(ListEditing, TheSourceIsWhereTheLastDragOfOneOfBothTablesBegan)
{
    put("AB", "PQ");
    Pasteboard pasteboard;
    writeDraggedRows({1}, pasteboard);
    delegate.tableViewAcceptDrop(table, pasteboard, 0,
                                 DropOperation::Above); // not from the layers, so from the presets
    EXPECT_EQ(layers(), "QAB");
    delegate.tableViewWriteRowsWithIndexes(table, {0}, pasteboard);
    ScriptedTable other("otherTView");
    delegate.tableViewWriteRowsWithIndexes(other, {1}, pasteboard);
    EXPECT_EQ(delegate.draggedTV(), 1);
    delegate.tableViewAcceptDrop(ptable, pasteboard, 0, DropOperation::On);
    EXPECT_EQ(presets(), "APQ");
    delegate.tableViewAcceptDrop(other, pasteboard, 0, DropOperation::Above);
    pasteboard.setData({'b', 'p', 'l', 'i', 's', 't'}, kRowDragType);
    EXPECT_TRUE(delegate.tableViewAcceptDrop(table, pasteboard, 0, DropOperation::Above));
    EXPECT_EQ(delegate.tableViewValidateDrop(table, pasteboard, 7, DropOperation::On), kDragOperationEvery);
    EXPECT_EQ(layers() + presets(), "QABAPQ");
}

TEST_F(ListEditing, DraggedRowsAreRangesOfSevenBitsAByte)
{
    const auto written = [](const std::set<std::size_t>& rows) {
        Pasteboard pasteboard;
        writeDraggedRows(rows, pasteboard);
        EXPECT_EQ(firstDraggedRow(pasteboard), *rows.begin());
        const Bytes& bytes = *pasteboard.dataForType(kRowDragType);
        return std::string(bytes.begin(), bytes.end());
    };
    EXPECT_NE(written({300, 302}).find("\xAC\x02\x01\xAE\x02\x01"), std::string::npos);
    EXPECT_NE(written({127, 128, 300, 70000}).find("\x7F\x02\xAC\x02\x01\xF0\xA2\x04\x01"), std::string::npos);
    EXPECT_EQ(written({200, 201, 202}).find("NSRangeData"), std::string::npos) << "one range stands by itself";
}

TEST_F(ListEditing, AMoveRunsTheChangeHandlerTwiceAndFollowsTheItem)
{
    put("ABC", "P");
    const ItemRef moved = delegate.allScreensArray()->at(0);
    table.events.clear();
    drag(table, {0}, table, 2); // the throttle holds
    EXPECT_EQ(table.events, "reload reload ");
    EXPECT_EQ(delegate.arraycontroller().selectedObject(), moved);
    table.selected = 2;
    delegate.tableViewSelectionDidChange();
    table.selected.reset();
    delegate.tableViewSelectionDidChange();
    EXPECT_EQ(delegate.arraycontroller().selectionIndexes(), std::set<std::size_t>{2}) << "the table's is taken over";
}

TEST_F(ListEditing, TheAddSheetAddsBelowTheFirstRow)
{
    put("ABC", "P");
    delegate.arraycontroller().setSelectionIndex(2);
    delegate.add();
    EXPECT_EQ(table.type, kRowDragType) << "each sheet wakes its owner";
    delegate.CancelAddWindow();
    EXPECT_EQ(layers(), "ABC");
    delegate.AddScreen();
    EXPECT_EQ(events, "begin AddWindow|end AddWindow|end AddWindow|");
    EXPECT_EQ(names(*delegate.allScreensArray()), "A|Layer 1|B|C|");
    const GXItem& added = *delegate.allScreensArray()->at(1);
    EXPECT_EQ(added.screenSizeWidth(), 312);
    EXPECT_EQ(added.XYFontSize(), 50);
    EXPECT_EQ(delegate.arraycontroller().selectionIndexes(), std::set<std::size_t>{1});

    events.clear();
    cancel();
    delegate.AddImage();
    EXPECT_EQ(events, "") << "the sheet stays";
    write("no picture", {'t'});
    choose("no picture");
    delegate.AddImage();
    EXPECT_EQ(names(*delegate.allScreensArray()), "A||Layer 1|B|C|");
    EXPECT_EQ(delegate.allScreensArray()->at(1)->screenSizeWidth(), 0);
    ASSERT_EQ(logged.size(), 1u);
    EXPECT_TRUE(logged[0].starts_with(path("no picture") + ": ")) << logged[0];
    drag(table, {1}, ptable, 1);
    const auto copy = std::dynamic_pointer_cast<GXStill>(delegate.presetScreensArray()->at(1));
    ASSERT_TRUE(copy);
    EXPECT_EQ(*copy->ImageURL(), *location("no picture"));

    delegate.openPvw();
    delegate.openAbout();
    delegate.closeAbout();
    EXPECT_EQ(events, "end AddWindow|show Output Preview|begin About|end About|");
}

TEST_F(ListEditing, RemovalKeepsOneItemUnlessAllAreSelected)
{
    put("ABC", "PQR");
    delegate.arraycontroller().setSelectionIndexes({0, 2});
    delegate.presetarraycontroller().setSelectionIndexes({0, 1});
    for (int i = 0; i < 2; ++i) {
        delegate.remove();
        delegate.removePreset();
        EXPECT_EQ(layers() + presets(), "BR");
        EXPECT_EQ(alerts, std::vector<std::string>(static_cast<std::size_t>(2 * i), kRefusal));
    }
    put("AB", "P");
    delegate.arraycontroller().setSelectionIndexes({0, 1});
    delegate.remove();
    EXPECT_EQ(layers(), "");
    delegate.remove();
    EXPECT_EQ(alerts.size(), 3u);
    delegate.AddScreen();
    EXPECT_EQ(names(*delegate.allScreensArray()), "Layer 1|");
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
    write("none", writePresets({}));
    choose("none");
    delegate.openPresets();
    EXPECT_EQ(presets(), "");
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
    cancel();
    delegate.openPresets();
    delegate.savePresets();
    EXPECT_EQ(presets(), "PQ");
    EXPECT_TRUE(alerts.empty());
}

TEST_F(ListEditing, GXPresetsReordersItsOwnList)
{
    const auto controller = GXPresets::init();
    EXPECT_EQ(controller->presetScreensArray()->at(0)->col(), 5);
    ScriptedTable own("any");
    controller->setTable(&own);
    controller->awakeFromNib();
    EXPECT_EQ(own.type, kRowDragType);
    struct Case {
        std::set<std::size_t> rows;
        std::ptrdiff_t row;
        const char* expected;
    };
    const Case cases[] = {{{0}, 2, "QPR"},    {{2}, 0, "RPQ"}, {{1}, 1, "PQR"}, {{1}, 2, "PQR"}, {{0}, 3, "QRP"},
                          {{1, 2}, 0, "QPR"}, {{3}, 0, ""},    {{}, 0, ""},     {{0}, 4, ""},    {{2}, -1, ""}};
    for (const auto& [rows, row, expected] : cases) {
        controller->setPresetScreensArray(std::make_shared<ItemArray>(screens("PQR")));
        own.events.clear();
        Pasteboard pasteboard;
        EXPECT_TRUE(controller->tableViewWriteRowsWithIndexes(table, rows, pasteboard));
        EXPECT_TRUE(controller->tableViewAcceptDrop(own, pasteboard, row, DropOperation::Above));
        const bool taken = *expected != '\0';
        EXPECT_EQ(letters(*controller->presetScreensArray()), taken ? expected : "PQR") << "row " << row;
        EXPECT_EQ(own.events, taken ? "count reload " : "") << "row " << row;
    }
    EXPECT_EQ(delegate.draggedTV(), 0);
}
