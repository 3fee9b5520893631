// SPDX-License-Identifier: MIT
#pragma once

#include "items/gx_screen.h"
#include "platform/unicode.h"
#include "scripted_desktop.h"
#include "scripted_views.h"

#include <algorithm>
#include <set>

namespace wallgrid {

/// The launched program with both tables, its lists filled with screens that have one letter for a name.
class ListFixture : public ScriptedDesktop {
protected:
    ListFixture()
    {
        delegate.connect({nullptr, &table, &ptable, nullptr, &sheets, &windows});
        delegate.applicationDidFinishLaunching();
    }

    static ItemArray screens(std::string_view letters)
    {
        ItemArray items;
        for (const char letter : letters) {
            items.push_back(GXScreen::init());
            items.back()->setLabel(makeString(std::u16string(1, static_cast<char16_t>(letter))));
        }
        return items;
    }
    void put(std::string_view layerLetters, std::string_view presetLetters)
    {
        delegate.setAllScreensArray(std::make_shared<ItemArray>(screens(layerLetters)));
        delegate.setPresetScreensArray(std::make_shared<ItemArray>(screens(presetLetters)));
    }

    static std::string names(const ItemArray& items, const char* end = "|")
    {
        std::string text;
        for (const ItemRef& item : items)
            text += toUtf8(textOf(item->label())) + end;
        return text;
    }
    std::string layers() const { return names(*delegate.allScreensArray(), ""); }
    std::string presets() const { return names(*delegate.presetScreensArray(), ""); }

    ItemArray allItems() const
    {
        ItemArray items = *delegate.allScreensArray();
        items.insert(items.end(), delegate.presetScreensArray()->begin(), delegate.presetScreensArray()->end());
        return items;
    }
    /// How many items are now in the lists that were not.
    std::ptrdiff_t strangersAmong(const ItemArray& before) const
    {
        const ItemArray now = allItems();
        return std::count_if(now.begin(), now.end(), [&](const ItemRef& item) {
            return std::find(before.begin(), before.end(), item) == before.end();
        });
    }

    void drag(ScriptedTable& from, const std::set<std::size_t>& rows, ScriptedTable& to, std::ptrdiff_t row)
    {
        Pasteboard pasteboard;
        EXPECT_TRUE(delegate.tableViewWriteRowsWithIndexes(from, rows, pasteboard));
        EXPECT_TRUE(delegate.tableViewAcceptDrop(to, pasteboard, row, DropOperation::Above));
    }

    ScriptedTable table{"mainTView"};
    ScriptedTable ptable{"presetTView"};
    ScriptedSheets sheets;
    ScriptedWindows windows;
};

} // namespace wallgrid
