// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "cli/command_line.h"
#include "cli/project_input.h"
#include "desktop/headless_desktop.h"
#include "graphics/bitmap_memory.h"
#include "png/png_encoder.h"

#include <filesystem>
#include <ostream>
#include <string>

namespace wallgrid {

namespace {

constexpr const char* kStandardOutput = "-";

ExitCode fail(std::ostream& err, const std::string& file, const std::string& reason)
{
    err << "wallgrid: " << file << ": " << reason << '\n';
    return kExitFailed;
}

Expected<void> writeOutput(std::span<const std::uint8_t> bytes, std::ostream& out)
{
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size())).flush();
    if (!out)
        return failure("standard output cannot be written");
    return {};
}

Expected<void> writePng(const Bitmap& raster, const std::string& file, std::ostream& out)
{
    const auto png = encodePng(raster);
    if (!png)
        return tl::unexpected(png.error());
    return file == kStandardOutput ? writeOutput(*png, out) : writeFileAtomically(file, *png);
}

/// Standard output cannot go back to a length that is known later, so the file is made as a whole for it.
Expected<void> writePsd(GXAppDelegate& delegate, const std::string& file, std::ostream& out)
{
    if (file != kStandardOutput)
        return produceFileAtomically(file, [&](ByteSink& sink) { return delegate.writePSDOn(sink).result(); });
    KPPSDError error;
    const ByteBuffer psd = delegate.createPSDData(&error);
    return error ? error.result() : writeOutput(psd, out);
}

/// Names a file that was written.
void say(const ExportRequest& request, std::ostream& err, const std::string& file)
{
    if (request.verbose)
        err << "wallgrid: " << file << ": written\n";
}

} // namespace

ExitCode runExport(const ExportRequest& request, std::ostream& out, std::ostream& err)
{
    const std::size_t refusedBefore = BitmapMemory::refused();
    StreamLog log(err);
    HeadlessDesktop desktop(log);
    GXAppDelegate delegate(desktop.desktop());
    delegate.applicationDidFinishLaunching();

    const std::string source = request.project.value_or("the launch document");
    if (request.project) {
        const auto project = readProjectInput(*request.project);
        if (!project)
            return fail(err, source, project.error().message);
        delegate.loadProject(*project);
        delegate.setShouldUpdate(true);
        delegate.update();
    }
    if (BitmapMemory::refused() != refusedBefore && delegate.offscreenRep())
        return kExitFailed; // the controller has said so
    for (const auto& file : {request.png, request.psd}) {
        std::error_code none;
        if (request.keepsFiles && file && file != kStandardOutput && std::filesystem::exists(*file, none))
            return fail(err, *file, "exists already");
    }
    if (request.png) {
        const auto raster = delegate.rasterToExport();
        if (!raster)
            return fail(err, source, raster.error().message);
        if (const auto written = writePng(**raster, *request.png, out); !written)
            return fail(err, *request.png, written.error().message);
        say(request, err, *request.png);
    }
    if (request.psd) {
        if (const auto written = writePsd(delegate, *request.psd, out); !written)
            return fail(err, *request.psd, written.error().message);
        say(request, err, *request.psd);
    }
    return kExitDone;
}

} // namespace wallgrid
