// SPDX-License-Identifier: MIT
//
// Any bytes as a project file: what opens is rendered, exported both ways and saved, and what was saved opens as the
// same document. Bitmaps may take little memory, so that most executions are fast and many meet a bitmap that is
// refused.
#include "app/gx_app_delegate.h"
#include "desktop/headless_desktop.h"
#include "fuzz/fuzz_target.h"
#include "graphics/bitmap_memory.h"
#include "png/png_encoder.h"
#include "qt/qt_toolkit.h"

#include <QGuiApplication>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

using namespace wallgrid;

namespace {

constexpr std::size_t kBitmapMemory = 1 << 20;

/// Where the archives' stills point to, as /proc/self/fd/100.
constexpr int kPictureFile = 100;

void makePictureFile()
{
    const BitmapRef bitmap = Bitmap::create(9, 7);
    const auto png = encodePng(*bitmap);
    const int file = ::memfd_create("picture", 0);
    FUZZ_CHECK(::write(file, png->data(), png->size()) == static_cast<ssize_t>(png->size()));
    FUZZ_CHECK(::dup2(file, kPictureFile) == kPictureFile);
}

/// What a program has around it for the whole of its life.
struct Surroundings {
    Surroundings()
    {
        makePictureFile();
        BitmapMemory::setMaximumTotal(kBitmapMemory);
    }

    int argc = 1;
    char name[5] = "fuzz";
    char* argv[2] = {name, nullptr};
    QGuiApplication application{argc, argv};
    QtToolkit toolkit;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const Surroundings surroundings;
    const auto project = readProject(bytesOf(data, size));
    if (!project)
        return 0;

    std::ostringstream messages;
    StreamLog log(messages);
    HeadlessDesktop desktop(log);
    GXAppDelegate delegate(desktop.desktop());
    delegate.setAllScreensArray(std::make_shared<ItemArray>());
    delegate.loadProject(*project);
    delegate.setShouldUpdate(true);
    delegate.update();
    if (const BitmapRef raster = delegate.offscreenRep())
        FUZZ_CHECK(encodePng(*raster));
    KPPSDError error;
    const ByteBuffer psd = delegate.createPSDData(&error);
    FUZZ_CHECK(psd.empty() == bool(error));

    const Bytes saved = writeProject(delegate.project());
    const auto again = readProject(saved);
    FUZZ_CHECK(again && again->items.size() == project->items.size());
    // Equal texts of a file are one text from the first reading on.
    const Bytes settled = writeProject(*again);
    const auto last = readProject(settled);
    FUZZ_CHECK(last && writeProject(*last) == settled);
    return 0;
}
