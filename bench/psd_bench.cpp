// SPDX-License-Identifier: MIT
#include "benchmarks.h"
#include "documents.h"
#include "items/gx_screen.h"
#include "plain_packed_bits.h"
#include "plain_psd.h"
#include "psd/packed_rows.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>

namespace wallgrid::bench {

namespace {

/// A yardstick that does other work than ours measures nothing.
void requireSame(std::span<const std::uint8_t> ours, std::span<const std::uint8_t> plain, const std::string& what)
{
    if (std::ranges::equal(ours, plain))
        return;
    std::fprintf(stderr, "%s: the bytes differ from those made the plain way\n", what.c_str());
    std::exit(2);
}

// The whole file ---------------------------------------------------------------------------------------------------

struct Export {
    Export(int width, int height, int screens)
        : document(width, height, screens)
        , writer(document.psdWriter())
    {
    }

    Document document;
    std::shared_ptr<KPPSDWriter> writer;
};

void addExport(std::vector<Ratio>& ratios, const std::string& name, int width, int height, int screens,
               double fileAtMost, double exportAtMost)
{
    // Made once, when first measured.
    const auto get = [=, made = std::make_shared<std::unique_ptr<Export>>()]() -> Export& {
        if (!*made) {
            *made = std::make_unique<Export>(width, height, screens);
            requireSame((*made)->writer->createPSDData(), plainPsd(*(*made)->writer), name);
        }
        return **made;
    };
    const auto add = [&](const std::string& task, const std::function<std::size_t(Export&)>& run) {
        benchmark::RegisterBenchmark((name + task).c_str(), [=](benchmark::State& state) {
            Export& exported = get();
            for (auto _ : state)
                benchmark::DoNotOptimize(run(exported));
        });
    };
    add("/ours", [](Export& e) { return e.writer->createPSDData().size(); });
    add("/plain", [](Export& e) { return plainPsd(*e.writer).size(); });
    add("/ours with layers", [](Export& e) { return e.document.psdWriter()->createPSDData().size(); });
    add("/plain with layers", [](Export& e) { return plainPsd(*e.document.psdWriter()).size(); });
    ratios.push_back({name + ": plain encoder, channels twice", name + "/ours", name + "/plain", fileAtMost});
    ratios.push_back({name + " with its merged image: the same, plain encoder", name + "/ours with layers",
                      name + "/plain with layers", exportAtMost});
}

// The packer alone -------------------------------------------------------------------------------------------------

constexpr int kWidth = 3840; // 33 MB
constexpr int kHeight = 2160;

BitmapRef panels()
{
    const ScreenRef screen = GXScreen::initWithrow(12, 20, 192, 180, Color::redColor(), Color::whiteColor(), nullptr, 0,
                                                   true, true, nullptr, false, 0, 0);
    screen->setBoarderWidth(2);
    screen->drawInRect();
    return screen->thumbnail()->firstRepresentation();
}

BitmapRef noise()
{
    const BitmapRef bitmap = Bitmap::create(kWidth, kHeight);
    std::mt19937 random{20261123};
    for (int y = 0; y < kHeight; ++y) {
        std::ranges::generate(bitmap->row(y), [&] {
            const auto bits = random();
            const auto sample = [&](unsigned shift) { return static_cast<std::uint8_t>(bits >> shift); };
            return Pixel{sample(0), sample(8), sample(16), sample(24)};
        });
    }
    return bitmap;
}

/// A channel of a row, the plain way.
void packPlain(const Bitmap& bitmap, int y, std::size_t channel, std::vector<std::uint8_t>& packed)
{
    constexpr std::array kOffsets = {offsetof(Pixel, r), offsetof(Pixel, g), offsetof(Pixel, b), offsetof(Pixel, a)};
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(bitmap.row(y).data()), bitmap.bytesPerRow());
    packPlainly(bytes, kOffsets[channel], bytes.size() - kOffsets[channel], sizeof(Pixel), packed);
}

struct Packer {
    explicit Packer(BitmapRef rows)
        : bitmap(std::move(rows))
    {
    }

    /// As the writer does it, but no row is told what stands above it, so that each is packed.
    void runOurs()
    {
        ours.start(PackedRows::kMostChannels, kHeight, kWidth, {});
        for (int y = 0; y < kHeight; ++y)
            ours.addRow(bitmap->row(y), nullptr);
    }

    void runPlain()
    {
        plain.clear(); // and keeps its memory
        for (int y = 0; y < kHeight; ++y) {
            for (std::size_t channel = 0; channel < PackedRows::kMostChannels; ++channel)
                packPlain(*bitmap, y, channel, plain);
        }
    }

    void check(const std::string& name)
    {
        runOurs();
        for (int channel = 0; channel < PackedRows::kMostChannels; ++channel) {
            ByteBuffer packed;
            ours.appendData(channel, packed);
            std::vector<std::uint8_t> expected;
            for (int y = 0; y < kHeight; ++y)
                packPlain(*bitmap, y, static_cast<std::size_t>(channel), expected);
            requireSame(packed, expected, name);
        }
    }

    BitmapRef bitmap;
    PackedRows ours;
    std::vector<std::uint8_t> plain;
};

void addPacker(std::vector<Ratio>& ratios, const std::string& name, BitmapRef (*make)(), double atMost)
{
    const auto get = [=, made = std::make_shared<std::unique_ptr<Packer>>()]() -> Packer& {
        if (!*made) {
            *made = std::make_unique<Packer>(make());
            (*made)->check(name);
        }
        return **made;
    };
    const auto add = [&](const std::string& task, void (Packer::*run)()) {
        benchmark::RegisterBenchmark((name + task).c_str(), [=](benchmark::State& state) {
            Packer& packer = get();
            for (auto _ : state) {
                (packer.*run)();
                benchmark::ClobberMemory();
            }
        });
    };
    add("/ours", &Packer::runOurs);
    add("/plain", &Packer::runPlain);
    ratios.push_back({name + ": plain encoder", name + "/ours", name + "/plain", atMost});
}

// Memory -----------------------------------------------------------------------------------------------------------

/// What psd_memory found, run once.
std::array<double, 2> peakAndNeed(const std::string& document)
{
    std::array<double, 2> bytes{};
    const std::string command = std::string(WALLGRID_PSD_MEMORY) + " " + document;
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    if (!output || std::fscanf(output.get(), "%lf %lf", &bytes[0], &bytes[1]) != 2) {
        std::fprintf(stderr, "%s failed\n", command.c_str());
        std::exit(2);
    }
    return bytes;
}

void addMemory(std::vector<Ratio>& ratios, const std::string& name, const std::string& document)
{
    const auto found = [=, made = std::make_shared<std::array<double, 2>>()]() -> const std::array<double, 2>& {
        if ((*made)[0] == 0)
            *made = peakAndNeed(document);
        return *made;
    };
    for (const std::size_t i : {0U, 1U}) {
        benchmark::RegisterBenchmark((name + (i == 0 ? "/peak" : "/need")).c_str(), [=](benchmark::State& state) {
            for (auto _ : state)
                state.counters["bytes"] = found()[i];
        })->Iterations(1);
    }
    // Memory comes in pages of 2 MB.
    ratios.push_back({name + ": pictures, merged image, file, a layer", name + "/peak", name + "/need", 1.05, "bytes"});
}

} // namespace

void addPsd(std::vector<Ratio>& ratios)
{
    addExport(ratios, "PSD 3840x2160", 3840, 2160, 20, 0.3, 0.4);
    addExport(ratios, "PSD 16384x8192", 16384, 8192, 60, 0.2, 0.25);
    addPacker(ratios, "PackBits of panels", panels, 0.3);
    addPacker(ratios, "PackBits of noise", noise, 0.35);
    addMemory(ratios, "PSD memory 3840x2160", "3840 2160 20");
    addMemory(ratios, "PSD memory 16384x8192", "16384 8192 60");
}

} // namespace wallgrid::bench
