// SPDX-License-Identifier: MIT
#include "app/undo_history.h"

#include "app/preset_file.h"
#include "items/gx_still.h"
#include "png/png_encoder.h"
#include "scripted_program.h"

using namespace wallgrid;

namespace {

class UndoHistoryTest : public ScriptedProgram {
protected:
    struct Step {
        std::string name;
        std::function<void()> act;
    };

    UndoHistoryTest()
    {
        put("ABC", "XYZ");
        delegate.setOutputWidth(160); // little to compare
        delegate.setOutputHeight(90);
        history.start();
    }

    /// Control goes back to the run loop, and somewhat later the user goes on.
    void endTurn(double seconds = 0) { runLoop.advance(seconds); }

    GXItem& layer(std::size_t row) { return *(*delegate.allScreensArray())[row]; }

    /// One of each kind. Layers and presets are at least three.
    std::vector<Step> steps()
    {
        write("some presets", writePresets(screens("UVW")));
        write("a.mpr", writeProject({300, 400, screens("PQ")}));
        const auto open = [this](const char* name, void (GXAppDelegate::*action)()) {
            return [this, name, action] {
                choose(name);
                (delegate.*action)();
            };
        };
        return {
            {"added", [&] { delegate.AddScreen(); }},
            {"removed",
             [&] {
                 delegate.arraycontroller().setSelectionIndexes({0, 2});
                 delegate.remove();
             }},
            {"reordered", [&] { drag(table, {2}, table, 0); }},
            {"added", [&] { drag(ptable, {1}, table, 3); }},
            {"presets added", [&] { drag(table, {1}, ptable, 0); }},
            {"presets reordered", [&] { drag(ptable, {0}, ptable, 3); }},
            {"presets removed", [&] { delegate.removePreset(); }},
            {"presets replaced", open("some presets", &GXAppDelegate::openPresets)},
            {"replaced", open("a.mpr", &GXAppDelegate::openProject)},
            {"added", open("none.png", &GXAppDelegate::AddImage)},
            {"property label",
             [&] {
                 layer(0).setLabel(nullptr);
                 history.commit();
                 delegate.createPSDData(nullptr);
             }},
            {"property position",
             [&] {
                 layer(1).setXpoint(-7);
                 layer(1).setYpoint(9);
             }},
            {"property ",
             [&] {
                 layer(1).setRow(9);
                 layer(1).setRectColor(Color::greenColor());
             }},
            {"property ImageURL", [&] { dynamic_cast<GXStill&>(layer(4)).setImageURL(location("other.png")); }},
            {"property ImageURL", [&] { layer(4).setThumbnail(nullptr); }},
            {"property outputSize", [&] { delegate.setOutputWidth(640); }},
            {"property bgColor", [&] { delegate.setBgColor(Color::greenColor()); }},
            {"property edgeColor", [&] { delegate.setEdgeColor(Color::redColor()); }},
        };
    }

    /// All that a user could save, with what no file holds.
    std::vector<Bytes> document() const
    {
        const auto bytes = [](const ColorRef& color) {
            const Pixel pixel = color ? color->pixel() : Pixel{};
            return Bytes{pixel.a, pixel.r, pixel.g, pixel.b};
        };
        return {writeProject(delegate.project()), writePresets(*delegate.presetScreensArray()),
                bytes(delegate.bgColor()), bytes(delegate.edgeColor())};
    }
    auto everything()
    {
        compose();
        return std::tuple(document(), encodePng(*delegate.offscreenRep()).value(), allItems());
    }
    static std::string nameOf(const DocumentChange* change)
    {
        static const std::string names[] = {"nothing", "added", "removed", "reordered", "replaced", "property "};
        return !change ? "-"
                       : (change->presets ? "presets " : "") + names[static_cast<int>(change->what)] +
                             std::string(change->property);
    }
    std::string undoName() const { return nameOf(history.undoable()); }

    UndoHistory history{delegate, runLoop};
};

TEST_F(UndoHistoryTest, EveryKindOfChangeIsOneStepThatGoesBackAndForth)
{
    for (const Step& step : steps()) {
        SCOPED_TRACE(step.name);
        ItemArray sideBySide = screens("ABCD");
        for (std::size_t i = 0; i < sideBySide.size(); ++i) {
            sideBySide[i]->setPanelWidth(6);
            sideBySide[i]->setXpoint(static_cast<std::int32_t>(35 * i));
            sideBySide[i]->drawInRect();
        }
        sideBySide.push_back(GXStill::initWithimage(sideBySide[0]->thumbnail()));
        sideBySide[4]->setYpoint(50);
        ScriptedProgram::put(sideBySide);
        delegate.setPresetScreensArray(std::make_shared<ItemArray>(screens("XYZ")));
        delegate.arraycontroller().setSelectionIndex(1);
        endTurn(2);
        history.start();
        const auto before = everything();

        step.act();
        endTurn(2);
        const auto after = everything();
        const auto selected = [&] {
            return std::pair(delegate.arraycontroller().selectionIndexes(),
                             delegate.presetarraycontroller().selectionIndexes());
        };
        const auto selectedAfter = selected();
        EXPECT_TRUE(after != before);
        EXPECT_EQ(undoName(), step.name);
        for (int round = 0; round < 2; ++round) {
            while (history.undoable())
                history.undo();
            EXPECT_TRUE(everything() == before);
            while (history.redoable())
                history.redo();
            EXPECT_EQ(undoName(), step.name);
            EXPECT_TRUE(everything() == after);
            EXPECT_EQ(selected(), selectedAfter);
        }
    }
}

TEST_F(UndoHistoryTest, TypingAndDraggingAreOneStep)
{
    const auto steps = [&] {
        int count = 0;
        for (; history.undoable(); ++count)
            history.undo();
        history.start();
        return count;
    };
    const auto typeColumns = [&](std::initializer_list<int> values, double pause) {
        for (const int value : values) {
            layer(0).setCol(value);
            endTurn(pause);
        }
    };
    typeColumns({1, 19, 192}, 0.6);
    EXPECT_EQ(steps(), 1);
    typeColumns({1, 2}, 1.1);
    EXPECT_EQ(steps(), 2);
    typeColumns({1}, 0.1);
    layer(1).setCol(1);
    endTurn();
    EXPECT_EQ(steps(), 2);
    typeColumns({7, 5}, 0.1);
    EXPECT_EQ(steps(), 0); // typed and deleted again
    for (const bool visible : {false, true}) {
        layer(0).setVisible(visible);
        endTurn();
    }
    EXPECT_EQ(steps(), 2); // switches do not run together

    history.beginInteraction();
    typeColumns({7, 8, 9}, 1.5);
    layer(0).setXpoint(3);
    endTurn();
    history.undo(); // not within one
    EXPECT_EQ(layer(0).xpoint(), 3);
    history.endInteraction();
    EXPECT_EQ(undoName(), "property ");
    history.beginInteraction();
    layer(0).setXpoint(4);
    history.endInteraction();
    layer(0).setXpoint(5);
    EXPECT_EQ(steps(), 3);
}

TEST_F(UndoHistoryTest, KeepsSoManyStepsAndImages)
{
    for (std::size_t i = 0; i < UndoHistory::kMaximumSteps + 5; ++i) {
        layer(0).setVisible(i % 2 != 0);
        endTurn();
    }
    std::size_t steps = 0;
    for (; history.undoable(); ++steps)
        history.undo();
    EXPECT_EQ(steps, UndoHistory::kMaximumSteps);

    // Removed screens are drawn again when they come back. A still cannot be, and holds its image.
    const ItemRef screen = delegate.allScreensArray()->front();
    const ItemRef still = GXStill::initWithimage(screen->thumbnail());
    delegate.arraycontroller().insertObjectAtArrangedObjectIndex(still, 0);
    endTurn();
    delegate.arraycontroller().removeObjects({screen, still});
    endTurn();
    EXPECT_EQ(screen->thumbnail(), nullptr);
    EXPECT_NE(still->thumbnail(), nullptr);
    history.undo();
    EXPECT_NE(screen->thumbnail(), nullptr);
}

} // namespace
