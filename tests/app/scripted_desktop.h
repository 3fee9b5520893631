// SPDX-License-Identifier: MIT
#pragma once

#include "app/gx_app_delegate.h"
#include "base/unicode.h"
#include "desktop/desktop.h"
#include "items/gx_screen.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <stdlib.h>
#include <string>
#include <vector>

namespace wallgrid {

/// A desktop whose user is the test: panels answer what they were told to, everything else is written down.
class ScriptedDesktop : public testing::Test, Panels, RecentDocuments, Log, Progress {
protected:
    ScriptedDesktop()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "wallgrid-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
    }
    ~ScriptedDesktop() override { std::filesystem::remove_all(folder); }

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
    void cancel() { answer = nullptr; }

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

    ManualRunLoop runLoop;
    Files files{*this};
    GXAppDelegate delegate{{runLoop, *this, *this, files, *this, *this}};
};

} // namespace wallgrid
