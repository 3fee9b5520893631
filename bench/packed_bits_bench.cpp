// SPDX-License-Identifier: MIT
#include "base/growing_file.h"
#include "benchmarks.h"
#include "items/gx_screen.h"
#include "plain_packed_bits.h"
#include "psd/packbits/packed_rows.h"
#include "same_bytes.h"

#include <algorithm>
#include <array>
#include <memory>
#include <random>

namespace wallgrid::bench {

namespace {

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
            GrowingFile packed;
            ours.appendData(channel, packed);
            std::vector<std::uint8_t> expected;
            for (int y = 0; y < kHeight; ++y)
                packPlain(*bitmap, y, static_cast<std::size_t>(channel), expected);
            requireSame(packed.end(), expected, name);
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

} // namespace

void addPackedBits(std::vector<Ratio>& ratios)
{
    addPacker(ratios, "PackBits of panels", panels, 0.1);
    addPacker(ratios, "PackBits of noise", noise, 0.35);
}

} // namespace wallgrid::bench
