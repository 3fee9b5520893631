// SPDX-License-Identifier: MIT
#include "items/gx_screen.h"
#include "platform/unicode.h"
#include "scripted_desktop.h"
#include "scripted_views.h"

#include <sstream>

using namespace wallgrid;

namespace {

struct ScriptedImageView : ImageView {
    void setImage(ImageRef newImage) override { image = std::move(newImage); }
    void setFrameSize(Size size) override { frame.size = size; }
    void setFollowsContainer() override { followsContainer = true; }
    ImageRef image;
    Rect frame;
    bool followsContainer = false;
};

struct ScriptedWindow : Window {
    void setFrame(const Rect& newFrame) override { frame = newFrame; }
    ImageView* addImageView(const Rect& viewFrame) override
    {
        view.frame = viewFrame;
        return &view;
    }
    void show() override {}
    ScriptedImageView view;
    Rect frame;
};

class Launch : public ScriptedDesktop {
protected:
    Launch()
    {
        delegate.connect({&window, &table, &ptable, &mini, nullptr});
        delegate.awakeFromNib();
        delegate.applicationDidFinishLaunching();
    }

    ScriptedWindow window;
    ScriptedTable table{"mainTView"};
    ScriptedTable ptable{"presetTView"};
    ScriptedImageView mini;
};

std::string describe(const GXItem& item)
{
    std::ostringstream text;
    text << item.col() << 'x' << item.row() << " of " << item.panelWidth() << 'x' << item.panelHeight() << " at "
         << item.xpoint() << ',' << item.ypoint() << (item.bgEnable() ? " fill" : "")
         << (item.BoarderEnable() ? " frame" : "") << (item.CircleEnable() ? " circle" : "") << ' '
         << (item.rectColor() == Color::redColor() ? "red" : "green") << ' '
         << (item.boarderColor() == Color::whiteColor() ? "white" : "coloured") << ' ' << toUtf8(textOf(item.label()));
    return text.str();
}

} // namespace

TEST_F(Launch, BuildsTheDocumentAndThePresets)
{
    EXPECT_EQ(delegate.OutputWidth(), 1920);
    EXPECT_EQ(delegate.OutputHeight(), 1080);
    EXPECT_EQ(delegate.bgColor(), nullptr);
    EXPECT_EQ(delegate.edgeColor(), nullptr);
    EXPECT_EQ(delegate.screenNumber(), 0);
    ASSERT_EQ(delegate.allScreensArray()->size(), 1u);
    EXPECT_EQ(describe(*delegate.allScreensArray()->at(0)), "4x4 of 78x78 at 0,0 fill frame red white Layer 0");
    std::string presets;
    for (const ItemRef& preset : *delegate.presetScreensArray())
        presets += describe(*preset) + '\n';
    EXPECT_EQ(presets, "10x10 of 192x108 at 0,0 frame red white GRID\n"
                       "1x3 of 1920x540 at 0,-270 frame green coloured LINES\n"
                       "2x2 of 960x540 at 0,0 frame red coloured CROSS\n"
                       "1x1 of 960x540 at 480,270 circle red white CIRCLE\n");
}

TEST_F(Launch, BuildsThePreviewAndShowsTheFirstRaster)
{
    EXPECT_EQ(window.frame, (Rect{{0, 0}, {640, 360}}));
    EXPECT_EQ(window.view.frame, (Rect{{0, -25}, {640, 360}}));
    EXPECT_TRUE(window.view.followsContainer);
    EXPECT_EQ(delegate.pvwImageWell(), &window.view);
    EXPECT_EQ(table.type, "BasicTableViewDragAndDropDataType");
    EXPECT_EQ(ptable.type, "BasicTableViewDragAndDropDataType");
    EXPECT_EQ(table.delegate, &delegate);
    EXPECT_EQ(ptable.delegate, &delegate);

    ASSERT_TRUE(delegate.offscreenRep());
    EXPECT_EQ(delegate.offscreenRep()->width(), 1920);
    EXPECT_EQ(delegate.offscreenRep()->height(), 1080);
    EXPECT_EQ(delegate.img()->size(), (Size{1920, 1080}));
    EXPECT_EQ(delegate.img()->firstRepresentation(), delegate.offscreenRep());
    EXPECT_EQ(window.view.image, delegate.img());
    EXPECT_EQ(mini.image, delegate.img());
    EXPECT_EQ(delegate.applicationShouldTerminate(), GXAppDelegate::TerminateReply::TerminateNow);
}

TEST_F(Launch, ObservesNineteenPropertiesOfEveryItem)
{
    const ItemRef item = delegate.allScreensArray()->at(0);
    table.reloads = 0;
    const auto reloadsOf = [&](auto change) {
        const int before = table.reloads;
        change();
        return table.reloads - before;
    };
    // The throttle holds, so one reload comes from the handler and none from the pass.
    EXPECT_EQ(reloadsOf([&] { item->setPanelHeight(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setPanelWidth(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setRow(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setCol(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setRectColor(nullptr); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setBoarderColor(nullptr); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setVisible(true); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setXpoint(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setYpoint(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setXYFontSize(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setXYFontEnable(true); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setCircleEnable(true); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setBoarderEnable(true); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setScreenFontSize(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setScreenFontEnable(true); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setBgEnable(true); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setCircleColor(nullptr); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setCircleBWidth(9); }), 1);
    EXPECT_EQ(reloadsOf([&] { item->setBoarderWidth(9); }), 1);

    EXPECT_EQ(reloadsOf([&] { item->setLabel(nullptr); }), 0);
    EXPECT_EQ(reloadsOf([&] { item->setThumbnail(nullptr); }), 0);
    EXPECT_EQ(reloadsOf([&] { item->setScreenSizeWidth(9); }), 0);
    EXPECT_EQ(reloadsOf([&] { item->setScreenSizeHeight(9); }), 0);
    EXPECT_EQ(reloadsOf([&] { item->drawInRect(); }), 0);
}

TEST_F(Launch, AnyNotificationRendersTheSelectedItemAndNoOther)
{
    const ItemRef first = delegate.allScreensArray()->at(0);
    const ItemRef second = GXScreen::init();
    delegate.arraycontroller().insertObjectAtArrangedObjectIndex(second, 1);
    delegate.arraycontroller().setSelectionIndex(0);

    const ImageRef firstPicture = first->thumbnail();
    const ImageRef secondPicture = second->thumbnail();
    second->setCol(9);
    EXPECT_NE(first->thumbnail(), firstPicture);
    EXPECT_EQ(second->thumbnail(), secondPicture);

    const ImageRef again = first->thumbnail();
    delegate.presetScreensArray()->at(0)->setThumbnail(nullptr);
    EXPECT_NE(first->thumbnail(), again) << "a preset's thumbnail is observed too";

    delegate.arraycontroller().setSelectionIndexes({});
    const ImageRef unselected = first->thumbnail();
    const int reloads = table.reloads;
    first->setCol(2);
    EXPECT_EQ(first->thumbnail(), unselected);
    EXPECT_EQ(table.reloads, reloads + 1);
}
