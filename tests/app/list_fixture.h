// SPDX-License-Identifier: MIT
#pragma once

#include "scripted_desktop.h"

#include <algorithm>
#include <set>

namespace wallgrid {

struct ScriptedTable : TableView {
    explicit ScriptedTable(std::string tableName)
        : name(std::move(tableName))
    {
    }
    std::string identifier() const override { return name; }
    void setDelegate(TableDelegate* newDelegate) override { delegate = newDelegate; }
    void registerForDraggedType(std::string_view newType) override { type = newType; }
    std::optional<std::size_t> selectedRow() override { return selected; }
    void noteNumberOfRowsChanged() override { events += "count "; }
    void reloadData() override { events += "reload "; }

    std::string name;
    TableDelegate* delegate = nullptr;
    std::string type;
    std::optional<std::size_t> selected;
    std::string events;
};

/// The launched program with both tables, its lists filled with screens that have one letter for a name.
class ListFixture : public ScriptedDesktop {
protected:
    ListFixture()
    {
        delegate.connect({nullptr, &table, &ptable, nullptr, nullptr, nullptr});
        delegate.applicationDidFinishLaunching();
    }

    static ItemArray screens(std::string_view letters)
    {
        ItemArray items;
        for (const char letter : letters)
            items.push_back(screen(std::u16string(1, static_cast<char16_t>(letter))));
        return items;
    }
    void put(std::string_view layerLetters, std::string_view presetLetters)
    {
        delegate.setAllScreensArray(std::make_shared<ItemArray>(screens(layerLetters)));
        delegate.setPresetScreensArray(std::make_shared<ItemArray>(screens(presetLetters)));
    }
    static std::string letters(const ItemArray& items)
    {
        std::string text = names(items);
        std::erase(text, '|');
        return text;
    }
    std::string layers() const { return letters(*delegate.allScreensArray()); }
    std::string presets() const { return letters(*delegate.presetScreensArray()); }
    ItemArray allItems() const
    {
        ItemArray items = *delegate.allScreensArray();
        items.insert(items.end(), delegate.presetScreensArray()->begin(), delegate.presetScreensArray()->end());
        return items;
    }
    void drag(ScriptedTable& from, const std::set<std::size_t>& rows, ScriptedTable& to, std::ptrdiff_t row)
    {
        Pasteboard pasteboard;
        EXPECT_TRUE(delegate.tableViewWriteRowsWithIndexes(from, rows, pasteboard));
        EXPECT_TRUE(delegate.tableViewAcceptDrop(to, pasteboard, row, DropOperation::Above));
    }

    ScriptedTable table{"mainTView"};
    ScriptedTable ptable{"presetTView"};
};

} // namespace wallgrid
