// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "items/gx_still.h"
#include "platform/keyed_archiver.h"
#include "scripted_desktop.h"

#include <fstream>

using namespace wallgrid;
namespace fs = std::filesystem;

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
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    void write(const std::string& name, const Bytes& bytes) const
    {
        std::ofstream(path(name))
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    static ScreenRef named(std::u16string name)
    {
        const ScreenRef screen = GXScreen::init();
        screen->setLabel(makeString(std::move(name)));
        return screen;
    }
    std::u16string labels() const
    {
        std::u16string text;
        for (const ItemRef& item : *delegate.allScreensArray())
            text += textOf(item->label()) + u' ';
        return text;
    }
    void put(ItemArray items) { delegate.setAllScreensArray(std::make_shared<ItemArray>(std::move(items))); }
    std::string url(const std::string& name) const { return location(name)->absoluteString(); }

    std::vector<Pixel> rasterPixels() const
    {
        const Bitmap& raster = *delegate.offscreenRep();
        return {raster.pixels(), raster.pixels() + raster.width() * raster.height()};
    }
};

} // namespace

TEST_F(DocumentFiles, ExtensionsAreAppendedUnlessTheyAreThere)
{
    for (const char* name : {"wall.mpr", "wall", "wall.txt", "wall.MPR"}) {
        choose(name);
        delegate.saveProject();
    }
    EXPECT_EQ(filesWritten(), (std::vector<std::string>{"wall.MPR.mpr", "wall.mpr", "wall.txt.mpr"}));
    EXPECT_EQ(recent, (std::vector<std::string>{"wall.mpr", "wall.mpr", "wall.txt.mpr", "wall.MPR.mpr"}));
    for (const char* name : {"out.png", "out", "out.PNG", "out.psd"}) {
        choose(name);
        delegate.saveAction();
    }
    cancel();
    delegate.saveProject();
    delegate.saveAction();
    EXPECT_EQ(filesWritten(), (std::vector<std::string>{"out.PNG.png", "out.png", "out.psd.png", "wall.MPR.mpr",
                                                        "wall.mpr", "wall.txt.mpr"}));
    EXPECT_EQ(recent.size(), 4u);
}

TEST_F(DocumentFiles, OpeningReplacesTheDocumentAndKeepsTheRest)
{
    put({named(u"P"), named(u"Q"), named(u"R")});
    delegate.setOutputWidth(640);
    delegate.setOutputHeight(480);
    choose("three");
    delegate.saveProject();
    put({named(u"A"), named(u"B"), named(u"C"), named(u"D"), named(u"E")});
    delegate.setOutputWidth(100);
    delegate.setOutputHeight(200);
    const ColorRef background = Color::greenColor();
    delegate.setBgColor(background);
    const auto presets = *delegate.presetScreensArray();

    choose("three.mpr");
    delegate.openProject();
    EXPECT_EQ(labels(), u"P Q R ");
    EXPECT_EQ(delegate.OutputWidth(), 640);
    EXPECT_EQ(delegate.OutputHeight(), 480);
    EXPECT_EQ(delegate.offscreenRep()->width(), 640) << "opening renders whatever the throttle says";
    EXPECT_EQ(delegate.bgColor(), background);
    EXPECT_EQ(*delegate.presetScreensArray(), presets);
    EXPECT_EQ(delegate.arraycontroller().selectionIndex(), 0u);
    EXPECT_EQ(recent, (std::vector<std::string>{"three.mpr", "three.mpr"}));

    put({named(u"A")});
    EXPECT_TRUE(delegate.applicationOpenFile(url("three.mpr")));
    EXPECT_EQ(labels(), u"P Q R ");
    EXPECT_EQ(recent.size(), 2u) << "a file handed over is not noted";
    EXPECT_TRUE(alerts.empty() && logged.empty());
}

TEST_F(DocumentFiles, EveryArchivedFieldAndPixelComesBack)
{
    const ScreenRef screen =
        GXScreen::initWithrow(2, 3, 40, 30, Color::calibratedRGB(0.1, 0.2, 0.3, 0.4), Color::whiteColor(),
                              Color::deviceRGB(1, 0.5, 0), 17, true, true, nullptr, true, -7, 2147483647);
    screen->setYpoint(9);
    screen->setScreenFontSize(-2147483647 - 1);
    screen->setCircleBWidth(3);
    screen->setBoarderWidth(2);
    const char16_t odd[] = {0xD800, u'\0', 0xDC00, u'\u00E4'};
    screen->setLabel(makeString({odd, 4}));
    screen->drawInRect();
    const StillRef still = GXStill::initWithimage(nullptr);
    still->setPanelWidth(50);
    still->setScreenSizeWidth(51);
    still->setImageURL(location("gone \u00E4.png"));
    put({screen, still, screen});
    choose("all");
    delegate.saveProject();
    delegate.setShouldUpdate(true);
    delegate.update();
    const auto before = rasterPixels();

    choose("all.mpr");
    delegate.openProject();
    EXPECT_EQ(rasterPixels(), before);
    ASSERT_EQ(delegate.allScreensArray()->size(), 3u);
    const auto readScreen = std::dynamic_pointer_cast<GXScreen>(delegate.allScreensArray()->at(0));
    const auto readStill = std::dynamic_pointer_cast<GXStill>(delegate.allScreensArray()->at(1));
    ASSERT_TRUE(readScreen && readStill);
    EXPECT_EQ(delegate.allScreensArray()->at(2), readScreen) << "one object twice in the list stays one";
    const auto compare = [](const GXItem& a, const GXItem& b) {
        EXPECT_EQ(a.col(), b.col());
        EXPECT_EQ(a.row(), b.row());
        EXPECT_EQ(a.panelWidth(), b.panelWidth());
        EXPECT_EQ(a.panelHeight(), b.panelHeight());
        EXPECT_EQ(a.bgEnable(), b.bgEnable());
        EXPECT_EQ(a.BoarderEnable(), b.BoarderEnable());
        EXPECT_EQ(a.visible(), b.visible());
        EXPECT_EQ(a.xpoint(), b.xpoint());
        EXPECT_EQ(a.ypoint(), b.ypoint());
        EXPECT_EQ(a.XYFontSize(), b.XYFontSize());
        EXPECT_EQ(a.XYFontEnable(), b.XYFontEnable());
        EXPECT_EQ(a.screenFontSize(), b.screenFontSize());
        EXPECT_EQ(a.screenFontEnable(), b.screenFontEnable());
        EXPECT_EQ(a.CircleEnable(), b.CircleEnable());
        EXPECT_EQ(a.boarderWidth(), b.boarderWidth());
        EXPECT_EQ(a.circleBWidth(), b.circleBWidth());
        EXPECT_EQ(textOf(a.label()), textOf(b.label()));
        for (const auto color : {&GXItem::rectColor, &GXItem::boarderColor, &GXItem::circleColor}) {
            const ColorRef x = (a.*color)();
            const ColorRef y = (b.*color)();
            ASSERT_EQ(x == nullptr, y == nullptr);
            if (x) {
                EXPECT_EQ(x->space(), y->space());
                EXPECT_EQ(x->components(), y->components());
                EXPECT_EQ(x->alpha(), y->alpha());
            }
        }
    };
    compare(*screen, *readScreen);
    compare(*still, *readStill);
    EXPECT_TRUE(readScreen->PositionArray().empty());
    EXPECT_EQ(readScreen->label1(), nullptr);
    EXPECT_EQ(textOf(readScreen->captions().fields[0].text), u"Panel-H") << "the inspector shows the standard ones";
    EXPECT_TRUE(readStill->captions().groupRightHidden);
    EXPECT_EQ(readScreen->screenSizeWidth(), 120);
    EXPECT_EQ(*readStill->ImageURL(), *still->ImageURL());
    EXPECT_EQ(readStill->screenSizeWidth(), 50) << "rendered as it was inserted";
}

TEST_F(DocumentFiles, WhatIsNoProjectChangesNothing)
{
    const ArchiveValue number = std::int64_t{5};
    const auto item = [] { return ArchiveValue(std::shared_ptr<const Archivable>(GXScreen::init())); };
    using Array = std::vector<ArchiveValue>;
    const std::pair<const char*, ArchiveValue> shapes[] = {
        {"number", number},
        {"presets", Array{item(), item(), item()}},
        {"two", Array{number, number}},
        {"four", Array{number, number, Array{}, Array{}}},
        {"no list", Array{number, number, number}},
        {"item for list", Array{number, number, item()}},
        {"list for number", Array{Array{}, number, Array{}}},
        {"numbers in list", Array{number, number, Array{item(), number}}},
        {"color in list", Array{number, number, Array{ArchiveValue(Color::redColor())}}},
    };
    const auto items = *delegate.allScreensArray();
    const auto expectUnchanged = [&](const std::string& name) {
        logged.clear();
        choose(name);
        delegate.openProject();
        delegate.applicationOpenFile(url(name));
        EXPECT_EQ(*delegate.allScreensArray(), items) << name;
        EXPECT_EQ(delegate.OutputWidth(), 1920) << name;
        EXPECT_EQ(delegate.OutputHeight(), 1080) << name;
        EXPECT_EQ(logged.size(), 2u) << name;
    };
    for (const auto& [name, root] : shapes) {
        write(name, KeyedArchiver::archivedDataWithRootObject(root));
        expectUnchanged(name);
        EXPECT_TRUE(alerts.empty()) << name;
    }
    const Bytes whole = writeProject(delegate.project());
    for (std::size_t length = 0; length < whole.size(); length += 1 + length / 40) {
        write("cut", Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        expectUnchanged("cut");
    }
    expectUnchanged("gone");
    EXPECT_EQ(alerts, std::vector<std::string>{"No File Found|File Not Found"});
    EXPECT_TRUE(recent.empty());
}

TEST_F(DocumentFiles, NamesThatAreNoLocationAreToldOf)
{
    for (const char* name : {"/home/me/wall 1.mpr", "file:///w%zz.mpr", "https://example.org/w.mpr", "wall.mpr", ""})
        EXPECT_TRUE(delegate.applicationOpenFile(name));
    EXPECT_EQ(alerts, std::vector<std::string>(5, "No File Found|File Not Found"));
    EXPECT_EQ(delegate.allScreensArray()->size(), 1u);
}

TEST_F(DocumentFiles, CancellingTheOpenPanelStillRenders)
{
    const ImageRef shown = delegate.img();
    delegate.update();
    const ImageRef throttled = delegate.img();
    EXPECT_NE(throttled, shown);
    cancel();
    delegate.openProject();
    EXPECT_NE(delegate.img(), throttled);
    EXPECT_TRUE(recent.empty());
}

TEST_F(DocumentFiles, CancelledWorkLeavesNothingBehind)
{
    choose("old");
    delegate.saveProject();
    delegate.saveAction();
    const auto state = [this] {
        return std::tuple(filesWritten(), labels(), readFile(path("old.mpr")).value(),
                          readFile(path("old.png")).value());
    };
    const struct {
        const char* file;
        void (GXAppDelegate::*action)();
    } cases[] = {
        {"old.mpr", &GXAppDelegate::saveProject},
        {"old.png", &GXAppDelegate::saveAction},
        {"new", &GXAppDelegate::savePSD},
        {"old.mpr", &GXAppDelegate::openProject},
    };
    for (const auto& c : cases) {
        // Cancelled at the first report, at the second, and so on until it is through.
        choose(c.file);
        put({named(u"A"), named(std::u16string(static_cast<std::size_t>(&c - cases), u'x'))});
        delegate.setShouldUpdate(true);
        delegate.update();
        const auto before = state();
        for (patience = 0; patience < 20 && state() == before; ++patience)
            (delegate.*c.action)();
        EXPECT_GT(patience, 1) << c.file;
        EXPECT_LT(patience, 20) << c.file;
    }
    EXPECT_TRUE(logged.empty()) << logged[0];
}

TEST_F(DocumentFiles, FailedWritesAreLoggedWithFileAndReason)
{
    choose("no/such/folder");
    delegate.saveProject();
    delegate.saveAction();
    EXPECT_EQ(logged, (std::vector<std::string>{path("no/such/folder.mpr") + ": No such file or directory",
                                                path("no/such/folder.png") + ": No such file or directory"}));
}
