// SPDX-License-Identifier: MIT
#include "app/row_drag.h"
#include "list_fixture.h"

#include "items/gx_still.h"

#include <fstream>

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
        {table, {3}, table, 4, "ABCD", "PQ"},
        {table, {1, 3}, table, 0, "BACD", "PQ"}, // the first row only
        {ptable, {0}, ptable, 2, "ABCD", "QP"},
        {ptable, {1}, ptable, 0, "ABCD", "QP"},
        {ptable, {1}, table, 0, "QABCD", "PQ"},
        {ptable, {0}, table, 4, "ABCDP", "PQ"},
        {table, {3}, ptable, 0, "ABCD", "DPQ"},
        {table, {0, 1}, ptable, 2, "ABCD", "PQA"},
        // Nothing to take, or nowhere to put it.
        {table, {}, table, 0, "ABCD", "PQ"},
        {table, {4}, table, 0, "ABCD", "PQ"},
        {ptable, {2}, table, 0, "ABCD", "PQ"},
        {table, {4}, ptable, 0, "ABCD", "PQ"},
        {table, {0}, table, 5, "ABCD", "PQ"},
        {table, {0}, table, -1, "ABCD", "PQ"},
        {ptable, {0}, table, 5, "ABCD", "PQ"},
        {table, {0}, ptable, 3, "ABCD", "PQ"},
    };
    for (const Case& each : cases) {
        put("ABCD", "PQ");
        const auto before = allItems();
        drag(each.from, each.rows, each.to, each.row);
        EXPECT_EQ(layers(), each.layers) << each.from.name << " to " << each.to.name << " row " << each.row;
        EXPECT_EQ(presets(), each.presets) << each.from.name << " to " << each.to.name << " row " << each.row;
        EXPECT_EQ(strangersAmong(before), std::ssize(allItems()) - std::ssize(before))
            << "a move keeps the object, a copy is another one";
    }
}

TEST_F(ListEditing, TheSourceIsWhereTheLastDragOfOneOfBothTablesBegan)
{
    put("AB", "PQ");
    Pasteboard pasteboard;
    EXPECT_EQ(delegate.draggedTV(), 0);
    writeDraggedRows({1}, pasteboard);
    delegate.tableViewAcceptDrop(table, pasteboard, 0,
                                 DropOperation::Above); // not from the layers, so from the presets
    EXPECT_EQ(layers(), "QAB");
    delegate.tableViewWriteRowsWithIndexes(table, {0}, pasteboard);
    EXPECT_EQ(delegate.draggedTV(), 1);
    ScriptedTable other("otherTView");
    delegate.tableViewWriteRowsWithIndexes(other, {1}, pasteboard);
    EXPECT_EQ(delegate.draggedTV(), 1);
    delegate.tableViewAcceptDrop(ptable, pasteboard, 0, DropOperation::On);
    EXPECT_EQ(presets(), "APQ");
    EXPECT_TRUE(delegate.tableViewAcceptDrop(other, pasteboard, 0, DropOperation::Above));
    EXPECT_EQ(layers() + presets(), "QABAPQ");

    for (const char* type : {"text/plain", "BasicTableViewDragAndDropDataType"}) {
        pasteboard.declareType(type);
        pasteboard.setData({'b', 'p', 'l', 'i', 's', 't'}, type);
        EXPECT_TRUE(delegate.tableViewAcceptDrop(table, pasteboard, 0, DropOperation::Above)) << type;
        EXPECT_EQ(delegate.tableViewValidateDrop(table, pasteboard, 7, DropOperation::On), ~std::uint64_t{0});
    }
    EXPECT_EQ(layers() + presets(), "QABAPQ");
}

TEST_F(ListEditing, AMoveRunsTheChangeHandlerTwiceAndFollowsTheItem)
{
    put("ABC", "P");
    const ItemRef moved = delegate.allScreensArray()->at(0);
    table.events.clear();
    drag(table, {0}, table, 2); // the throttle holds
    EXPECT_EQ(table.events, "reload reload ");
    EXPECT_EQ(delegate.arraycontroller().selectedObject(), moved);
}

TEST_F(ListEditing, CopiesAreTheirOwnItems)
{
    put("A", "P");
    const ItemRef preset = delegate.presetScreensArray()->at(0);
    drag(ptable, {0}, table, 0);
    const ItemRef copy = delegate.allScreensArray()->at(0);
    const ImageRef picture = preset->thumbnail();
    copy->setCol(copy->col() + 1);
    EXPECT_EQ(preset->thumbnail(), picture);
    EXPECT_NE(copy->thumbnail(), picture);
    EXPECT_EQ(preset->col() + 1, copy->col());

    const StillRef still = GXStill::initWithimage(nullptr);
    still->setImageURL(location("logo.png"));
    delegate.arraycontroller().insertObjectAtArrangedObjectIndex(still, 0);
    drag(table, {0}, ptable, 1);
    const auto stillPreset = std::dynamic_pointer_cast<GXStill>(delegate.presetScreensArray()->at(1));
    ASSERT_TRUE(stillPreset && stillPreset != still);
    EXPECT_EQ(stillPreset->ImageURL(), still->ImageURL());
}

TEST_F(ListEditing, TheAddSheetAddsBelowTheFirstRow)
{
    put("ABC", "P");
    delegate.arraycontroller().setSelectionIndex(2);
    table.type.clear();
    delegate.add();
    EXPECT_EQ(table.type, kRowDragType) << "each sheet wakes its owner";
    delegate.AddMask();
    delegate.CancelAddWindow();
    EXPECT_EQ(layers(), "ABC");
    delegate.AddScreen();
    EXPECT_EQ(sheets.log,
              (std::vector<std::string>{"load AddWindow", "begin AddWindow", "end AddWindow", "end AddWindow"}));
    EXPECT_EQ(names(*delegate.allScreensArray()), "A|Layer 1|B|C|");
    const GXItem& added = *delegate.allScreensArray()->at(1);
    EXPECT_EQ(added.screenSizeWidth(), 312);
    EXPECT_EQ(added.screenSizeHeight(), 312);
    EXPECT_EQ(added.XYFontSize(), 50);
    EXPECT_EQ(delegate.arraycontroller().selectionIndexes(), std::set<std::size_t>{1});

    cancel();
    delegate.add();
    sheets.log.clear();
    delegate.AddImage();
    EXPECT_TRUE(sheets.log.empty()) << "the sheet stays";
    std::ofstream(path("no picture")) << "text";
    choose("no picture");
    delegate.AddImage();
    EXPECT_EQ(names(*delegate.allScreensArray()), "A||Layer 1|B|C|");
    const auto still = std::dynamic_pointer_cast<GXStill>(delegate.allScreensArray()->at(1));
    ASSERT_TRUE(still);
    EXPECT_EQ(*still->ImageURL(), *location("no picture"));
    EXPECT_EQ(still->screenSizeWidth(), 0);
    EXPECT_EQ(sheets.log, std::vector<std::string>{"end AddWindow"});
    ASSERT_EQ(logged.size(), 1u);
    EXPECT_TRUE(logged[0].starts_with(path("no picture") + ": ")) << logged[0];

    delegate.openPvw();
    EXPECT_EQ(windows.log, "Output Preview shown");
    delegate.openAbout();
    delegate.closeAbout();
    sheets.log.erase(sheets.log.begin());
    EXPECT_EQ(sheets.log, (std::vector<std::string>{"load About", "begin About", "end About"}));
}

TEST_F(ListEditing, RemovalKeepsOneItemUnlessAllAreSelected)
{
    put("ABC", "P");
    delegate.removeSelectedScreen();
    delegate.arraycontroller().setSelectionIndexes({0, 2});
    delegate.remove();
    EXPECT_EQ(layers(), "B");
    delegate.remove();
    EXPECT_EQ(layers(), "B");
    EXPECT_EQ(alerts, std::vector<std::string>{kRefusal});

    put("AB", "P");
    delegate.arraycontroller().setSelectionIndexes({0, 1});
    delegate.remove();
    EXPECT_EQ(layers(), "");
    delegate.remove();
    EXPECT_EQ(alerts, std::vector<std::string>(2, kRefusal));
    drag(ptable, {0}, table, 0);
    EXPECT_EQ(layers(), "P");
    delegate.arraycontroller().removeObjectAtArrangedObjectIndex(0);
    delegate.AddScreen();
    EXPECT_EQ(names(*delegate.allScreensArray()), "Layer 1|");
}

TEST_F(ListEditing, TheMainTablesSelectionIsTakenOver)
{
    put("ABC", "PQ");
    table.selected = 2;
    delegate.tableViewSelectionDidChange();
    EXPECT_EQ(delegate.arraycontroller().selectionIndexes(), std::set<std::size_t>{2});
    table.selected.reset();
    delegate.tableViewSelectionDidChange();
    EXPECT_EQ(delegate.arraycontroller().selectionIndexes(), std::set<std::size_t>{2});
}
