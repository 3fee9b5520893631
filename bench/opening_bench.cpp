// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"
#include "items/gx_screen.h"

#include <cstdlib>
#include <functional>
#include <memory>

namespace wallgrid::bench {

namespace {

constexpr int kScreensASide = 100;
constexpr std::int32_t kSide = 64;

/// 10,000 screens, one beside the other.
Project screens()
{
    Project project{kScreensASide * kSide, kScreensASide * kSide, {}};
    for (int i = 0; i < kScreensASide * kScreensASide; ++i) {
        project.items.push_back(
            GXScreen::initWithrow(4, 4, kSide / 4, kSide / 4, Color::calibratedRGB(i / 1e4, 0.5, 1 - i / 1e4),
                                  Color::whiteColor(), Color::whiteColor(), 20, true, true, makeString(u"Screen"),
                                  false, i % kScreensASide * kSide, i / kScreensASide * kSide));
    }
    return project;
}

void compose(GXAppDelegate& delegate)
{
    delegate.setShouldUpdate(true);
    delegate.update();
    if (!delegate.offscreenRep())
        std::abort();
}

/// Does the work with a program that has just been started, memory and all, each time.
void measure(benchmark::State& state, const std::function<void(GXAppDelegate&)>& prepare,
             const std::function<void(GXAppDelegate&)>& work)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto program = std::make_unique<Program>();
        program->delegate().applicationDidFinishLaunching();
        prepare(program->delegate());
        state.ResumeTiming();
        work(program->delegate());
        compose(program->delegate());
        state.PauseTiming();
        program.reset();
        state.ResumeTiming();
    }
}

void open(benchmark::State& state)
{
    const Bytes file = writeProject(screens());
    measure(
        state, [](GXAppDelegate&) {},
        [&](GXAppDelegate& delegate) { delegate.loadProject(readProject(file).value()); });
}

void draw(benchmark::State& state)
{
    measure(
        state,
        [](GXAppDelegate& delegate) {
            delegate.loadProject(screens());
            for (const ItemRef& item : *delegate.allScreensArray())
                item->releasePicture();
        },
        [](GXAppDelegate& delegate) {
            for (const ItemRef& item : *delegate.allScreensArray())
                item->drawInRect();
        });
}

} // namespace

void addOpening(std::vector<Ratio>& ratios)
{
    benchmark::RegisterBenchmark("open 10000/ours", open);
    benchmark::RegisterBenchmark("open 10000/yardstick", draw);
    ratios.push_back({"open a project of 10,000 screens and compose it: drawing and composing them", "open 10000/ours",
                      "open 10000/yardstick", 1.3});
}

} // namespace wallgrid::bench
