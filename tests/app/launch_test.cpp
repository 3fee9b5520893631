// SPDX-License-Identifier: MIT
#include "app/row_drag.h"
#include "list_fixture.h"

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
    void setFrame(const Rect&) override {}
    ImageView* addImageView(const Rect& viewFrame) override
    {
        view.frame = viewFrame;
        return &view;
    }
    void show() override {}
    ScriptedImageView view;
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

} // namespace

TEST_F(Launch, BuildsTheDocumentAndShowsIt)
{
    EXPECT_EQ(names(*delegate.allScreensArray()), "Layer 0|");
    EXPECT_EQ(names(*delegate.presetScreensArray()), "GRID|LINES|CROSS|CIRCLE|");
    EXPECT_EQ(delegate.presetScreensArray()->at(1)->ypoint(), -270) << "its middle third covers the output";
    EXPECT_EQ(delegate.screenNumber(), 0);
    EXPECT_EQ(delegate.offscreenRep()->width(), 1920);
    EXPECT_EQ(delegate.offscreenRep()->height(), 1080);
    EXPECT_EQ(delegate.img()->firstRepresentation(), delegate.offscreenRep());
    EXPECT_EQ(window.view.image, delegate.img());
    EXPECT_EQ(mini.image, delegate.img());
    EXPECT_EQ(window.view.frame, (Rect{{0, -25}, {640, 360}}));
    EXPECT_TRUE(window.view.followsContainer);
    for (const ScriptedTable* each : {&table, &ptable}) {
        EXPECT_EQ(each->type, kRowDragType);
        EXPECT_EQ(each->delegate, &delegate);
    }
}

TEST_F(Launch, ObservesNineteenPropertiesOfEveryItem)
{
    const ItemRef item = delegate.allScreensArray()->at(0);
    int observed = 0;
    for (const GXItem::Field& field : GXItem::fields()) {
        table.events.clear();
        item->setValue(field, item->value(field));
        // The throttle holds, so one reload comes from the handler and none from the pass.
        EXPECT_EQ(table.events, field.observed ? "reload " : "") << field.property;
        observed += field.observed;
    }
    EXPECT_EQ(observed, 19);
    table.events.clear();
    item->setThumbnail(nullptr);
    item->drawInRect();
    EXPECT_EQ(table.events, "");
}

TEST_F(Launch, AnyNotificationRendersTheSelectedItemAndNoOther)
{
    const ItemRef first = delegate.allScreensArray()->at(0), second = GXScreen::init();
    delegate.arraycontroller().insertObjectAtArrangedObjectIndex(second, 1);
    const auto rendered = [&](auto change) {
        const ImageRef firstBefore = first->thumbnail(), secondBefore = second->thumbnail();
        change();
        return std::pair(first->thumbnail() != firstBefore, second->thumbnail() != secondBefore);
    };
    delegate.arraycontroller().setSelectionIndex(0);
    EXPECT_EQ(rendered([&] { second->setCol(9); }), std::pair(true, false));
    EXPECT_EQ(rendered([&] { delegate.presetScreensArray()->at(0)->setThumbnail(nullptr); }), std::pair(true, false));
    delegate.arraycontroller().setSelectionIndexes({});
    EXPECT_EQ(rendered([&] { first->setCol(2); }), std::pair(false, false));
}
