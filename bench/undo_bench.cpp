// SPDX-License-Identifier: MIT
#include "app/undo_history.h"
#include "benchmarks.h"
#include "desktop/headless_desktop.h"
#include "items/gx_screen.h"

#include <iostream>
#include <memory>

namespace wallgrid::bench {

namespace {

constexpr int kItems = 10'000;

/// A document of many small screens, on an output of one pixel so that composing it takes no time.
struct EditedDocument {
    EditedDocument()
    {
        delegate.applicationDidFinishLaunching();
        delegate.setOutputWidth(1);
        delegate.setOutputHeight(1);
        auto items = std::make_shared<ItemArray>();
        for (int i = 0; i < kItems; ++i)
            items->push_back(GXScreen::initWithrow(1, 1, 4, 4, Color::calibratedRGB(0, 0, 1), Color::redColor(),
                                                   Color::whiteColor(), 0, true, true, makeString(u"wall"), false, i,
                                                   i));
        delegate.setAllScreensArray(items);
        history.start();
    }
    GXItem& item() { return *delegate.arraycontroller().arrangedObjects()[kItems / 2]; }
    void edit()
    {
        item().setVisible(!item().visible());
        history.commit();
    }

    StreamLog log{std::cerr};
    HeadlessDesktop desktop{log};
    GXAppDelegate delegate{desktop.desktop()};
    ManualRunLoop runLoop;
    UndoHistory history{delegate, runLoop};
};

EditedDocument& document()
{
    static EditedDocument made;
    return made;
}

/// The plain way to take the state of a document: a copy of each item's values.
struct PlainValues {
    std::int32_t numbers[14];
    bool switches[8];
    ColorRef colors[3];
    StringRef label;
};

PlainValues valuesOf(const GXItem& item)
{
    return {{item.col(), item.row(), item.panelWidth(), item.panelHeight(), item.screenSizeWidth(),
             item.screenSizeHeight(), item.xpoint(), item.ypoint(), item.XYFontSize(), item.screenFontSize(),
             item.boarderWidth(), item.circleBWidth()},
            {item.bgEnable(), item.BoarderEnable(), item.visible(), item.XYFontEnable(), item.screenFontEnable(),
             item.CircleEnable()},
            {item.rectColor(), item.boarderColor(), item.circleColor()},
            item.label()};
}

} // namespace

void addUndo(std::vector<Ratio>& ratios)
{
    benchmark::RegisterBenchmark("undo step/ours", [](benchmark::State& state) {
        for (auto _ : state)
            document().edit();
    });
    benchmark::RegisterBenchmark("undo and redo/ours", [](benchmark::State& state) {
        document().edit();
        for (auto _ : state) {
            document().history.undo();
            document().history.redo();
        }
    });
    benchmark::RegisterBenchmark("undo/yardstick", [](benchmark::State& state) {
        const ItemArray& items = document().delegate.arraycontroller().arrangedObjects();
        for (auto _ : state) {
            std::vector<PlainValues> values;
            values.reserve(items.size());
            for (const ItemRef& item : items)
                values.push_back(valuesOf(*item));
            benchmark::DoNotOptimize(values.data());
        }
    });
    ratios.push_back({"undo: a step of 10,000 items: copy of all values", "undo step/ours", "undo/yardstick", 3});
    ratios.push_back({"undo: back and forth: copy of all values", "undo and redo/ours", "undo/yardstick", 6});
}

} // namespace wallgrid::bench
