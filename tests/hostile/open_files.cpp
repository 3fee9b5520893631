// SPDX-License-Identifier: MIT
//
// open_files FOLDER: opens each file of a folder, in the order of their names, in one window, exports and saves what
// opened, and prints each name. The bitmaps that are alive may take 256 MiB together. Stops with exit code 1 at a file
// that was refused but changed the document.
#include "platform/bitmap_memory.h"
#include "platform/png_encoder.h"
#include "ui/program_under_test.h"

#include <QApplication>
#include <cstdio>
#include <filesystem>

using namespace wallgrid;

namespace {

/// What is larger is for the program, without sanitizers.
constexpr std::size_t kBitmapMemory = std::size_t{256} << 20;

/// False when the file was refused but something changed.
bool open(ProgramUnderTest& program, const std::filesystem::path& path)
{
    GXAppDelegate& delegate = program.delegate();
    const Project before{480, 640, {GXScreen::init()}};
    delegate.loadProject(before);
    program.settle();
    std::printf("%s\n", path.filename().c_str()); // first, so that the last line names the file of a crash
    std::fflush(stdout);
    program.application.openFile(path.string());
    program.settle();
    const Project after = delegate.project();
    const bool opened = after.items != before.items;
    if (opened) {
        if (const BitmapRef raster = delegate.offscreenRep())
            encodePng(*raster);
        KPPSDError error;
        delegate.createPSDData(&error);
        writeProject(after);
    }
    return opened || (after.outputHeight == before.outputHeight && after.outputWidth == before.outputWidth);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    ProgramUnderTest program;
    BitmapMemory::setMaximumTotal(kBitmapMemory);
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
        paths.push_back(entry.path());
    std::ranges::sort(paths);
    for (const auto& path : paths) {
        if (!open(program, path)) {
            std::printf("refused, but it changed the document\n");
            return 1;
        }
    }
    return 0;
}
