// SPDX-License-Identifier: MIT
#include "items/gx_still.h"
#include "platform/png_encoder.h"
#include "scripted_desktop.h"

using namespace wallgrid;

namespace {

class DocumentFiles : public ScriptedDesktop {
protected:
    DocumentFiles()
    {
        delegate.applicationDidFinishLaunching();
        runLoop.advance(1);
    }

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

TEST_F(DocumentFiles, ExtensionsAreAppendedUnlessTheyAreThere)
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
    cancel();
    delegate.saveProject();
    delegate.saveAction();
    EXPECT_EQ(filesWritten(),
              (std::vector<std::string>{"out.PNG.png", "out.png", "out.psd.png", "wall.MPR.mpr", "wall.mpr"}));
    EXPECT_EQ(recent.size(), 3u);
    choose("no/such/folder");
    delegate.saveProject();
    delegate.saveAction();
    EXPECT_EQ(logged, (std::vector<std::string>{path("no/such/folder.mpr") + ": No such file or directory",
                                                path("no/such/folder.png") + ": No such file or directory"}));
}

TEST_F(DocumentFiles, OpeningReplacesTheDocumentAndKeepsTheRest)
{
    put({screen(u"P"), screen(u"Q"), screen(u"R")});
    delegate.setOutputWidth(640);
    delegate.setOutputHeight(480);
    choose("three");
    delegate.saveProject();
    put({screen(u"A"), screen(u"B")});
    delegate.setOutputWidth(100);
    delegate.setOutputHeight(200);
    delegate.setBgColor(Color::greenColor());
    const auto presets = *delegate.presetScreensArray();

    choose("three.mpr");
    delegate.openProject();
    EXPECT_EQ(labels(), "P|Q|R|");
    EXPECT_EQ(delegate.OutputWidth(), 640);
    EXPECT_EQ(delegate.OutputHeight(), 480);
    EXPECT_EQ(delegate.offscreenRep()->width(), 640) << "opening renders whatever the throttle says";
    EXPECT_EQ(delegate.bgColor(), Color::greenColor());
    EXPECT_EQ(*delegate.presetScreensArray(), presets);
    EXPECT_EQ(delegate.arraycontroller().selectionIndex(), 0u);
    EXPECT_EQ(recent, (std::vector<std::string>{"three.mpr", "three.mpr"}));

    put({screen(u"A")});
    delegate.allScreensArray()->front()->setXpoint(300);
    runLoop.advance(1);
    EXPECT_TRUE(delegate.applicationOpenFile(url("three.mpr")));
    EXPECT_EQ(labels(), "P|Q|R|");
    const auto opened = encodePng(*delegate.offscreenRep()).value();
    delegate.setShouldUpdate(true);
    delegate.update();
    EXPECT_EQ(encodePng(*delegate.offscreenRep()).value(), opened) << "no new items over the old ones";
    EXPECT_EQ(recent.size(), 2u) << "a file handed over is not noted";
    cancel();
    const ImageRef shown = delegate.img();
    delegate.openProject();
    EXPECT_NE(delegate.img(), shown) << "a cancelled panel renders all the same";
    EXPECT_TRUE(alerts.empty() && logged.empty());
}

TEST_F(DocumentFiles, EveryArchivedFieldComesBack)
{
    const ScreenRef written =
        GXScreen::initWithrow(2, 3, 40, 30, Color::calibratedRGB(0.1, 0.2, 0.3, 0.4), Color::whiteColor(),
                              Color::deviceRGB(1, 0.5, 0), 17, true, true, nullptr, true, -7, 2147483647);
    written->setScreenFontSize(-2147483647 - 1);
    written->setCircleBWidth(3);
    const char16_t odd[] = {0xD800, u'\0', 0xDC00, u'\u00E4'};
    written->setLabel(makeString({odd, 4}));
    const StillRef still = GXStill::initWithimage(nullptr);
    still->setPanelWidth(50);
    still->setScreenSizeWidth(51);
    still->setImageURL(location("gone \u00E4.png"));
    put({written, still, written});
    choose("all.mpr");
    delegate.saveProject();
    delegate.openProject();

    const ItemArray& read = *delegate.allScreensArray();
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[2], read[0]) << "one object twice in the list stays one";
    const auto same = [](const auto& a, const auto& b) {
        if constexpr (std::is_same_v<std::decay_t<decltype(a)>, StringRef>)
            return textOf(a) == textOf(b);
        else if constexpr (std::is_same_v<std::decay_t<decltype(a)>, ColorRef>)
            return a && b ? a->space() == b->space() && a->components() == b->components() && a->alpha() == b->alpha()
                          : a == b;
        else
            return a == b;
    };
    for (const GXItem::Field& field : GXItem::fields()) {
        const auto before = written->value(field), after = read[0]->value(field);
        EXPECT_TRUE(std::visit(
            [&](const auto& value) { return same(value, std::get<std::decay_t<decltype(value)>>(after)); }, before))
            << field.property;
    }
    const auto readStill = std::dynamic_pointer_cast<GXStill>(read[1]);
    ASSERT_TRUE(readStill);
    EXPECT_EQ(*readStill->ImageURL(), *still->ImageURL());
    EXPECT_EQ(readStill->screenSizeWidth(), 50) << "rendered as it was inserted";
}

TEST_F(DocumentFiles, WhatIsNoProjectChangesNothing)
{
    const auto items = *delegate.allScreensArray();
    Bytes cut = writeProject(delegate.project());
    cut.pop_back();
    write("cut", cut);
    for (const char* name : {"cut", "gone"}) {
        choose(name);
        delegate.openProject();
        delegate.applicationOpenFile(url(name));
    }
    EXPECT_EQ(logged.size(), 4u);
    EXPECT_EQ(alerts, std::vector<std::string>(1, "No File Found|File Not Found"));
    for (const char* name : {"/home/me/wall 1.mpr", "file:///w%zz.mpr", "https://example.org/w.mpr", "wall.mpr", ""})
        EXPECT_TRUE(delegate.applicationOpenFile(name));
    EXPECT_EQ(alerts.size(), 6u);
    EXPECT_EQ(*delegate.allScreensArray(), items);
    EXPECT_TRUE(recent.empty());
}

TEST_F(DocumentFiles, CancelledWorkLeavesNothingBehind)
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

TEST_F(DocumentFiles, WithoutARasterNoPictureIsMade)
{
    delegate.setOutputHeight(0);
    delegate.setShouldUpdate(true);
    delegate.update();
    choose("none");
    delegate.saveAction();
    EXPECT_EQ(logged, std::vector<std::string>{path("none.png") + ": no picture of 1920 x 0 pixels can be made"});
}
