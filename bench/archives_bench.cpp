// SPDX-License-Identifier: MIT
#include "archive/keyed_archiver.h"
#include "archive/keyed_decoder.h"
#include "benchmarks.h"

#include <cstdlib>

namespace wallgrid::bench {

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

void readProject(benchmark::State& state, std::int64_t screens)
{
    const auto file = KeyedArchiver::archivedDataWithRootObject(project(screens));
    for (auto _ : state)
        benchmark::DoNotOptimize(readAll(file));
    state.counters["s a screen"] = benchmark::Counter(
        static_cast<double>(screens), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace

void addArchives(std::vector<Ratio>& ratios)
{
    for (const int screens : {1'000, 10'000, 100'000}) {
        benchmark::RegisterBenchmark(("read " + std::to_string(screens)).c_str(),
                                     [=](benchmark::State& state) { readProject(state, screens); });
    }
    ratios.push_back({"read a project of 10,000 screens: 100 ms", "read 10000", "", 1, "", 0.1});
    ratios.push_back(
        {"read: time a screen, of 100,000 beside of 1,000", "read 100000", "read 1000", 1.5, "s a screen"});
}

} // namespace wallgrid::bench
