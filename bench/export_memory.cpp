// SPDX-License-Identifier: MIT
//
// export_memory WALLGRID WIDTH HEIGHT SCREENS: has the program export the project of such a document as a PNG and a
// PSD. It prints the program's memory at its peak, and the sizes of the raster, of the items' pictures and of the PSD,
// in bytes.
#include "base/file.h"
#include "documents.h"
#include "items/gx_still.h"
#include "png/png_encoder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace wallgrid;

namespace {

std::uint64_t bytesOf(const Bitmap& bitmap)
{
    return bitmap.bytesPerRow() * static_cast<std::uint64_t>(bitmap.height());
}

void require(bool success, const std::string& what)
{
    if (success)
        return;
    std::cerr << "export_memory: " << what << " failed\n";
    std::exit(1);
}

/// Writes the project, its stills as files beside it, and how many bytes its raster and its pictures are.
void writeProjectOn(const std::filesystem::path& folder, bench::Document& document)
{
    const GXAppDelegate& delegate = document.delegate();
    const Project project = delegate.project();
    std::uint64_t bytes = static_cast<std::uint64_t>(project.outputWidth) *
                          static_cast<std::uint64_t>(project.outputHeight) * sizeof(Pixel);
    for (const ItemRef& item : project.items) {
        const Bitmap& picture = *item->thumbnail()->firstRepresentation();
        bytes += bytesOf(picture);
        if (const auto still = std::dynamic_pointer_cast<GXStill>(item)) {
            const std::string file = folder / (std::to_string(bytes) + ".png");
            const auto png = encodePng(picture);
            require(png && writeFileAtomically(file, *png), file);
            still->setImageURL(std::make_shared<const Url>(Url::fromFilePath(file)));
        }
    }
    require(writeFileAtomically(folder / "project.mpr", writeProject(project)).has_value(), "writing the project");
    std::ofstream(folder / "bytes") << bytes;
}

/// Waits for a process and returns how much memory it had at its peak.
std::uint64_t peakOf(pid_t process, const std::string& what)
{
    int status = 0;
    rusage usage{};
    require(wait4(process, &status, 0, &usage) == process && status == 0, what);
    return static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
}

std::uint64_t exportedPeak(const std::filesystem::path& folder, char* program)
{
    std::string project = folder / "project.mpr", png = folder / "a.png", psd = folder / "a.psd";
    std::string command = "export", pngOption = "--png", psdOption = "--psd";
    char* const arguments[] = {program,    command.data(),   project.data(), pngOption.data(),
                               png.data(), psdOption.data(), psd.data(),     nullptr};
    pid_t process = 0;
    require(posix_spawn(&process, program, nullptr, nullptr, arguments, environ) == 0, program);
    return peakOf(process, "wallgrid export");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 5)
        return 2;
    std::string name = std::filesystem::temp_directory_path() / "wallgrid-bench-XXXXXX";
    require(mkdtemp(name.data()) != nullptr, name);
    const std::filesystem::path folder = name;
    // In a process of its own: a program that is started counts as its own peak what its starter held then.
    if (const pid_t process = fork(); process == 0) {
        bench::Document document(std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4]));
        writeProjectOn(folder, document);
        std::exit(0);
    } else {
        peakOf(process, "making the project");
    }
    const std::uint64_t peak = exportedPeak(folder, argv[1]);
    std::uint64_t need = 0;
    std::ifstream(folder / "bytes") >> need;
    need += std::filesystem::file_size(folder / "a.psd");
    std::filesystem::remove_all(folder);
    std::cout << peak << ' ' << need << '\n';
}
