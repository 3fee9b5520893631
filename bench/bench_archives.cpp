// SPDX-License-Identifier: MIT
//
// Reading and writing project files of 1,000 to 100,000 screens, all values of each. "sums" is the time as a multiple
// of the yardstick, adding up the bytes of the same file; "ns/screen" stays level where time grows with the file alone.
#include "platform/keyed_archiver.h"
#include "platform/keyed_decoder.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <numeric>

using namespace wallgrid;

namespace {

/// The 22 values of a screen.
struct Screen : Archivable {
    std::string_view archivedClassName() const override { return "GXScreen"; }
    void encodeWithCoder(KeyedArchiver& archiver) const override
    {
        archiver.encodeInt(5, "col");
        archiver.encodeBool(true, "bgenable");
        archiver.encodeBool(true, "boarderenable");
        archiver.encodeInt(128, "panelwidth");
        archiver.encodeInt(256, "panelheight");
        archiver.encodeInt(3, "row");
        archiver.encodeObject(rectColor, "rectcolor");
        archiver.encodeBool(true, "visible");
        archiver.encodeInt(768, "screenheight");
        archiver.encodeInt(640, "screenwidth");
        archiver.encodeInt(number * 640, "xpoint");
        archiver.encodeInt(-number, "ypoint");
        archiver.encodeInt(20, "xyfontsize");
        archiver.encodeBool(false, "xyenable");
        archiver.encodeBool(true, "fontenable");
        archiver.encodeBool(false, "circleenable");
        archiver.encodeInt(50, "screenfontsize");
        archiver.encodeObject(circleColor, "circlecolor");
        archiver.encodeObject(boarderColor, "boardercolor");
        archiver.encodeObject(label, "label");
        archiver.encodeInt(2, "boarderwidth");
        archiver.encodeInt(4, "circlebwidth");
    }

    std::int32_t number = 0;
    ColorRef rectColor;
    ColorRef circleColor = Color::redColor();
    ColorRef boarderColor = Color::whiteColor();
    StringRef label;
};

ArchiveValue project(std::int64_t count)
{
    std::vector<ArchiveValue> screens;
    for (int i = 0; i < count; ++i) {
        const auto screen = std::make_shared<Screen>();
        const std::string label = "Screen " + std::to_string(i);
        screen->number = i;
        screen->rectColor = Color::calibratedRGB(i / 1e5, 0.5, 1 - i / 1e5);
        screen->label = makeString(std::u16string(label.begin(), label.end()));
        screens.push_back(screen);
    }
    return std::vector<ArchiveValue>{1080, 1920, screens};
}

/// Everything in the file, added up so that nothing is left out.
std::int64_t readAll(std::vector<std::uint8_t> file)
{
    std::int64_t sum = 0;
    const auto root = KeyedUnarchiver::rootObject(std::move(file)).value();
    const auto screens = root.elements().value()[2].elements().value();
    for (const ArchivedObject& screen : screens) {
        sum += static_cast<std::int64_t>(screen.classAmong({"GXScreen", "GXStill"}).size());
        KeyedDecoder decoder(screen);
        for (const char* key : {"col", "panelwidth", "panelheight", "row", "screenheight", "screenwidth", "xpoint",
                                "ypoint", "xyfontsize", "screenfontsize", "boarderwidth", "circlebwidth"})
            sum += decoder.decodeInt(key);
        for (const char* key : {"bgenable", "boarderenable", "visible", "xyenable", "fontenable", "circleenable"})
            sum += decoder.decodeBool(key) ? 1 : 0;
        for (const char* key : {"rectcolor", "circlecolor", "boardercolor"})
            sum += decoder.decodeColor(key)->pixel().r;
        sum += static_cast<std::int64_t>(decoder.decodeString("label")->size());
        if (decoder.error())
            std::abort();
    }
    return sum;
}

using Clock = std::chrono::steady_clock;

/// Seconds that the yardstick takes for a file, the best of several.
double yardstick(const std::vector<std::uint8_t>& file)
{
    double best = 1e9;
    for (int i = 0; i < 20; ++i) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(std::accumulate(file.begin(), file.end(), std::uint64_t{0}));
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

void report(benchmark::State& state, const std::vector<std::uint8_t>& file, Clock::duration elapsed)
{
    const double seconds = std::chrono::duration<double>(elapsed).count() / static_cast<double>(state.iterations());
    state.counters["sums"] = seconds / yardstick(file);
    state.counters["ns/screen"] = seconds * 1e9 / static_cast<double>(state.range(0));
    state.counters["bytes"] = static_cast<double>(file.size());
}

void readProject(benchmark::State& state)
{
    const auto file = KeyedArchiver::archivedDataWithRootObject(project(state.range(0)));
    const auto start = Clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(readAll(file));
    report(state, file, Clock::now() - start);
}

void writeProject(benchmark::State& state)
{
    const ArchiveValue root = project(state.range(0));
    std::vector<std::uint8_t> file;
    const auto start = Clock::now();
    for (auto _ : state)
        file = KeyedArchiver::archivedDataWithRootObject(root);
    report(state, file, Clock::now() - start);
}

} // namespace

BENCHMARK(readProject)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(writeProject)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
