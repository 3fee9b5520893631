// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "base/unicode.h"
#include "desktop/desktop.h"
#include "items/gx_screen.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <stdlib.h>
#include <string>
#include <vector>

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

/// The launched program on a desktop whose user is the test: panels answer what they were told to, everything else is
/// written down.
class ScriptedProgram : public testing::Test, Panels, RecentDocuments, Log, Progress {
protected:
    ScriptedProgram()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "wallgrid-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        connection = delegate.connect({nullptr, &table, &ptable, nullptr, nullptr, nullptr});
        delegate.applicationDidFinishLaunching();
    }
    ~ScriptedProgram() override { std::filesystem::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }
    UrlRef location(const std::string& name) const
    {
        return std::make_shared<const Url>(Url::fromFilePath(path(name)));
    }
    void write(const std::string& name, const Bytes& bytes) const
    {
        std::ofstream(path(name))
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    /// The next panel answers with this file of the test's folder.
    void choose(const std::string& name) { answer = location(name); }

    static ScreenRef screen(std::u16string label)
    {
        const ScreenRef screen = GXScreen::init();
        screen->setLabel(makeString(std::move(label)));
        return screen;
    }
    void put(ItemArray items) { delegate.setAllScreensArray(std::make_shared<ItemArray>(std::move(items))); }
    static std::string names(const ItemArray& items)
    {
        std::string text;
        for (const ItemRef& item : items)
            text += toUtf8(textOf(item->label())) + "|";
        return text;
    }
    /// Screens that have one letter for a name.
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

    /// A pass that the throttle does not hold.
    void compose()
    {
        delegate.setShouldUpdate(true);
        delegate.update();
    }

    UrlRef runSavePanel() override { return answer; }
    UrlRef runOpenPanel() override { return answer; }
    void runAlert(std::string_view message, std::string_view informativeText) override
    {
        alerts.push_back(std::string(message) + "|" + std::string(informativeText));
    }
    void noteNewRecentDocument(const UrlRef& url) override
    {
        recent.push_back(std::filesystem::path(url->path()).filename().string());
    }
    void log(std::string_view line) override { logged.emplace_back(line); }
    void run(LongWork, const std::function<void(const Report&)>& work) override
    {
        work([this, reports = 0](double) mutable { return ++reports <= patience; });
    }

    std::filesystem::path folder;
    UrlRef answer;
    int patience = std::numeric_limits<int>::max(); ///< after so many reports the user cancels
    std::vector<std::string> alerts;
    std::vector<std::string> recent;
    std::vector<std::string> logged;

    ScriptedTable table{"mainTView"};
    ScriptedTable ptable{"presetTView"};
    Registration connection;
    ManualRunLoop runLoop;
    Files files{*this};
    GXAppDelegate delegate{{runLoop, *this, *this, files, *this, *this}};
};

} // namespace wallgrid
