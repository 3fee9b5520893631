// SPDX-License-Identifier: MIT
#include "png/png_encoder.h"
#include "scripted_program.h"

using namespace wallgrid;

namespace {

class DocumentFilesTest : public ScriptedProgram {
protected:
    DocumentFilesTest() { runLoop.advance(1); }

    std::vector<std::string> filesWritten() const
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }
    std::string labels() const { return names(*delegate.allScreensArray()); }
    std::string url(const std::string& name) const { return location(name)->absoluteString(); }
};

} // namespace

TEST_F(DocumentFilesTest, ExtensionsAreAppendedUnlessTheyAreThere)
{
    for (const char* name : {"wall.mpr", "wall", "wall.MPR"}) {
        choose(name);
        delegate.saveProject();
    }
    EXPECT_EQ(recent, (std::vector<std::string>{"wall.mpr", "wall.mpr", "wall.MPR.mpr"}));
    for (const char* name : {"out.png", "out.PNG", "out.psd"}) {
        choose(name);
        delegate.saveAction();
    }
    EXPECT_EQ(filesWritten(),
              (std::vector<std::string>{"out.PNG.png", "out.png", "out.psd.png", "wall.MPR.mpr", "wall.mpr"}));
    choose("no/such/folder");
    delegate.saveProject();
    delegate.saveAction();
    EXPECT_EQ(logged, (std::vector<std::string>{path("no/such/folder.mpr") + ": there is no such folder",
                                                path("no/such/folder.png") + ": there is no such folder"}));
}

TEST_F(DocumentFilesTest, OpeningReplacesTheDocumentAndKeepsTheRest)
{
    const ScreenRef twice = screen(u"P");
    put({twice, screen(u"Q"), twice});
    delegate.setOutputWidth(640);
    delegate.setOutputHeight(480);
    choose("three");
    delegate.saveProject();
    put({screen(u"A"), screen(u"B")});
    delegate.setOutputWidth(100);
    delegate.setOutputHeight(200);
    const auto presets = *delegate.presetScreensArray();

    choose("three.mpr");
    delegate.openProject();
    EXPECT_EQ(labels(), "P|Q|P|");
    EXPECT_EQ(delegate.allScreensArray()->front(), delegate.allScreensArray()->back());
    EXPECT_EQ(delegate.OutputWidth(), 640);
    EXPECT_EQ(delegate.OutputHeight(), 480);
    EXPECT_EQ(delegate.offscreenRep()->width(), 640) << "opening renders whatever the throttle says";
    EXPECT_EQ(*delegate.presetScreensArray(), presets);
    EXPECT_EQ(delegate.arraycontroller().selectionIndex(), 0u);
    EXPECT_EQ(recent, (std::vector<std::string>{"three.mpr", "three.mpr"}));

    put({screen(u"A")});
    runLoop.advance(1);
    EXPECT_TRUE(delegate.applicationOpenFile(url("three.mpr")));
    EXPECT_EQ(labels(), "P|Q|P|");
    EXPECT_EQ(recent.size(), 2u) << "a file handed over is not noted";
    answer = nullptr;
    const ImageRef shown = delegate.img();
    delegate.openProject();
    EXPECT_NE(delegate.img(), shown) << "a cancelled panel renders all the same";
    EXPECT_TRUE(alerts.empty() && logged.empty());
}

TEST_F(DocumentFilesTest, WhatIsNoProjectChangesNothing)
{
    const auto items = *delegate.allScreensArray();
    Bytes cut = writeProject(delegate.project());
    cut.pop_back();
    write("cut", cut);
    const ScreenRef wall = screen(u"W");
    wall->setPanelWidth(200);
    wall->setPanelHeight(200);
    EXPECT_FALSE(readProject(writeProject({1000, 1000, ItemArray(4400, wall)}))) << "too much for the composer";
    for (const char* name : {"cut", "gone"}) {
        choose(name);
        delegate.openProject();
        delegate.applicationOpenFile(url(name));
    }
    EXPECT_EQ(logged.size(), 4u);
    EXPECT_EQ(alerts, std::vector<std::string>(1, "No File Found|File Not Found"));
    EXPECT_TRUE(delegate.applicationOpenFile("file:///w%zz.mpr"));
    EXPECT_EQ(alerts.size(), 2u);
    EXPECT_EQ(*delegate.allScreensArray(), items);
    EXPECT_TRUE(recent.empty());
}

TEST_F(DocumentFilesTest, CancelledWorkLeavesNothingBehind)
{
    choose("old");
    delegate.saveProject();
    delegate.saveAction();
    delegate.savePSD();
    const auto state = [this] {
        return std::tuple(filesWritten(), labels(), readFile(path("old.mpr")).value(),
                          readFile(path("old.png")).value(), readFile(path("old.psd")).value());
    };
    std::u16string newName;
    const struct {
        const char* file;
        void (GXAppDelegate::*action)();
    } cases[] = {
        {"old.mpr", &GXAppDelegate::saveProject}, {"old.png", &GXAppDelegate::saveAction},
        {"old", &GXAppDelegate::savePSD},         {"new", &GXAppDelegate::savePSD},
        {"old.mpr", &GXAppDelegate::openProject},
    };
    for (const auto& [file, action] : cases) {
        // Cancelled at the first report, at the second, and so on until it is through.
        choose(file);
        put({screen(u"A"), screen(newName += u'x')});
        compose();
        const auto before = state();
        for (patience = 0; patience < 100 && state() == before; ++patience)
            (delegate.*action)();
        EXPECT_GT(patience, action == &GXAppDelegate::saveAction ? 2 : 1) << file;
        EXPECT_LT(patience, 100) << file;
    }
    EXPECT_TRUE(logged.empty()) << logged[0];
}
