// SPDX-License-Identifier: MIT
#include "app/gx_presets.h"
#include "app/preset_file.h"
#include "app/row_drag.h"
#include "items/gx_still.h"
#include "list_fixture.h"
#include "platform/keyed_archiver.h"

#include <fstream>

using namespace wallgrid;

namespace {

class Presets : public ListFixture {
protected:
    void write(const std::string& name, const Bytes& bytes) const
    {
        std::ofstream(path(name))
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
};

} // namespace

TEST_F(Presets, SavedPresetsComeBackAsNewObjects)
{
    delegate.presetScreensArray()->push_back(GXStill::initWithimage(nullptr));
    choose("my presets");
    delegate.savePresets();
    EXPECT_TRUE(std::filesystem::exists(path("my presets")));
    const auto saved = *delegate.presetScreensArray();
    put("AB", "XYZ");
    delegate.openPresets();
    EXPECT_EQ(names(*delegate.presetScreensArray()), "GRID|LINES|CROSS|CIRCLE||");
    EXPECT_EQ(strangersAmong(saved), 7);
    EXPECT_EQ(delegate.presetScreensArray()->at(1)->ypoint(), -270);
    EXPECT_TRUE(std::dynamic_pointer_cast<GXStill>(delegate.presetScreensArray()->at(4)));
    EXPECT_EQ(delegate.presetarraycontroller().selectionIndexes(), std::set<std::size_t>{0});
    EXPECT_EQ(layers(), "AB");

    write("none", writePresets({}));
    choose("none");
    delegate.openPresets();
    EXPECT_EQ(presets(), "");
    cancel();
    put("A", "PQ");
    delegate.openPresets();
    delegate.savePresets();
    EXPECT_EQ(presets(), "PQ");
    EXPECT_TRUE(recent.empty() && logged.empty() && alerts.empty());
}

TEST_F(Presets, WhatIsNoPresetFileChangesNothing)
{
    using Array = std::vector<ArchiveValue>;
    const ArchiveValue number = std::int64_t{5};
    const ArchiveValue item = std::shared_ptr<const Archivable>(GXScreen::init());
    std::vector<std::pair<std::string, Bytes>> samples{
        {"number", KeyedArchiver::archivedDataWithRootObject(number)},
        {"screen", KeyedArchiver::archivedDataWithRootObject(item)},
        {"number in list", KeyedArchiver::archivedDataWithRootObject(Array{item, number})},
        {"list in list", KeyedArchiver::archivedDataWithRootObject(Array{Array{item}})},
        {"project", writeProject(delegate.project())},
        {"empty", {}},
    };
    put("A", "PQ");
    const auto before = allItems();
    for (const auto& [name, bytes] : samples) {
        write("file", bytes);
        choose("file");
        logged.clear();
        delegate.openPresets();
        EXPECT_EQ(allItems(), before) << name;
        EXPECT_EQ(logged.size(), 1u) << name;
    }
    choose("gone");
    delegate.openPresets();
    choose("no/such/folder");
    delegate.savePresets();
    EXPECT_EQ(logged.size(), 3u);
    EXPECT_EQ(allItems(), before);
    EXPECT_TRUE(alerts.empty());
}

TEST_F(Presets, RemovalKeepsOnePreset)
{
    put("A", "PQR");
    delegate.presetarraycontroller().setSelectionIndexes({0, 1});
    delegate.removePreset();
    EXPECT_EQ(presets(), "R");
    delegate.removePreset();
    EXPECT_EQ(presets(), "R");
    EXPECT_EQ(alerts, std::vector<std::string>{"List Cannot be empty, Function was cancelled|"});
}

TEST_F(Presets, EveryChangeOfTheListRendersTheSelectedLayer)
{
    put("AB", "PQ");
    const ItemRef selected = delegate.arraycontroller().selectedObject();
    const auto renders = [&](auto change) {
        const ImageRef before = selected->thumbnail();
        change();
        return selected->thumbnail() != before;
    };
    EXPECT_TRUE(renders([&] { drag(table, {0}, ptable, 0); }));
    EXPECT_TRUE(renders([&] { delegate.removePreset(); }));
    write("one", writePresets(screens("X")));
    choose("one");
    EXPECT_TRUE(renders([&] { delegate.openPresets(); }));
}

TEST_F(Presets, GXPresetsReordersItsOwnList)
{
    const auto controller = GXPresets::init();
    ASSERT_EQ(controller->presetScreensArray()->size(), 1u);
    EXPECT_EQ(controller->presetScreensArray()->at(0)->col(), 5);
    ScriptedTable own("any");
    controller->setTable(&own);
    controller->awakeFromNib();
    EXPECT_EQ(own.type, "BasicTableViewDragAndDropDataType");

    struct Case {
        std::set<std::size_t> rows;
        std::ptrdiff_t row;
        const char* expected;
    };
    const Case cases[] = {
        {{0}, 2, "QPR"}, {{2}, 0, "RPQ"}, {{1}, 1, "PQR"}, {{1}, 2, "PQR"},  {{0}, 3, "QRP"},
        {{2}, 3, "PQR"}, {{0}, 0, "PQR"}, {{1}, 0, "QPR"}, {{2}, 1, "PRQ"},  {{1, 2}, 0, "QPR"},
        {{3}, 0, "PQR"}, {{}, 0, "PQR"},  {{0}, 4, "PQR"}, {{2}, -1, "PQR"},
    };
    for (const auto& [rows, row, expected] : cases) {
        controller->setPresetScreensArray(std::make_shared<ItemArray>(screens("PQR")));
        own.events.clear();
        Pasteboard pasteboard;
        EXPECT_TRUE(controller->tableViewWriteRowsWithIndexes(table, rows, pasteboard));
        EXPECT_EQ(controller->tableViewValidateDrop(own, pasteboard, row, DropOperation::On), kDragOperationEvery);
        EXPECT_TRUE(controller->tableViewAcceptDrop(own, pasteboard, row, DropOperation::Above));
        EXPECT_EQ(names(*controller->presetScreensArray(), ""), expected) << "row " << row;
        const bool taken = rows != std::set<std::size_t>{3} && !rows.empty() && row >= 0 && row <= 3;
        EXPECT_EQ(own.events, taken ? "count reload " : "") << "row " << row;
    }
    EXPECT_EQ(delegate.draggedTV(), 0);
}
