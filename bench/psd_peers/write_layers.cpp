// SPDX-License-Identifier: MIT
//
// write_layers FOLDER: writes the 3840 x 2160 document as ours.psd and as what other programs make a PSD of: the RGBA
// samples of merged.rgba and of each layer, 0.rgba the bottom one, laid on a transparent canvas; their names, one a
// line, are in names.txt. Prints how many milliseconds our writer took to make and write the file.
#include "base/file.h"
#include "documents.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <unistd.h>

using namespace wallgrid;

namespace {

constexpr int kWidth = 3840;
constexpr int kHeight = 2160;
constexpr int kScreens = 20;

void write(const std::filesystem::path& file, std::span<const std::uint8_t> bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush()) {
        std::cerr << file << " cannot be written\n";
        std::exit(1);
    }
}

std::vector<std::uint8_t> canvasOf(const KPPSDLayer::BitmapPart& part, Point origin)
{
    std::vector<std::uint8_t> samples(std::size_t{kWidth} * kHeight * 4);
    for (std::int64_t y = 0; y < part.rect.height; ++y) {
        const auto first = static_cast<std::size_t>((origin.y + static_cast<double>(y)) * kWidth + origin.x);
        std::uint8_t* out = samples.data() + first * 4;
        for (const Pixel& p : part.row(y))
            out = std::ranges::copy(std::array{p.r, p.g, p.b, p.a}, out).out;
    }
    return samples;
}

void writePsd(KPPSDWriter& writer, const std::filesystem::path& file)
{
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    DescriptorSink sink(descriptor);
    KPPSDError error;
    writer.writePSDOn(sink, &error);
    if (::close(descriptor) != 0 || error) {
        std::cerr << file << " cannot be written\n";
        std::exit(1);
    }
}

double medianMilliseconds(KPPSDWriter& writer, const std::filesystem::path& file)
{
    constexpr std::size_t kRuns = 9;
    std::array<double, kRuns> times;
    for (double& time : times) {
        std::filesystem::remove(file);
        const auto start = std::chrono::steady_clock::now();
        writePsd(writer, file);
        time = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
    std::ranges::nth_element(times, times.begin() + kRuns / 2);
    return times[kRuns / 2];
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const std::filesystem::path folder = argv[1];
    const bench::Document document(kWidth, kHeight, kScreens);
    const auto writer = document.psdWriter();
    writePsd(*writer, folder / "ours.psd");
    write(folder / "merged.rgba", canvasOf({writer->flattenedData(), 0, 0, kWidth, kHeight}, {}));
    std::ofstream names(folder / "names.txt");
    for (std::size_t i = 0; i < writer->layers().size(); ++i) {
        const KPPSDLayer& layer = *writer->layers()[i];
        write(folder / (std::to_string(i) + ".rgba"),
              canvasOf(layer.croppedPart(), layer.imageInDocumentRegion().origin));
        names << std::string(layer.name()->begin(), layer.name()->end()) << '\n';
    }
    std::cout << medianMilliseconds(*writer, folder / "ours.psd") << '\n';
}
