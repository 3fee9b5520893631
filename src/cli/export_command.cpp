// SPDX-License-Identifier: MIT
#include "app/gx_app_delegate.h"
#include "cli/command_line.h"
#include "platform/bitmap_memory.h"
#include "platform/headless_desktop.h"
#include "platform/png_encoder.h"

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

Expected<void> writePicture(const std::string& file, std::span<const std::uint8_t> bytes, std::ostream& out)
{
    if (file != kStandardOutput)
        return writeFileAtomically(file, bytes);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size())).flush();
    if (!out)
        return failure("standard output cannot be written");
    return {};
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
        auto bytes = readFile(*request.project);
        if (!bytes)
            return fail(err, source, bytes.error().message);
        const auto project = readProject(std::move(*bytes));
        if (!project)
            return fail(err, source, project.error().message);
        delegate.loadProject(*project);
        delegate.setShouldUpdate(true);
        delegate.update();
    }
    if (BitmapMemory::refused() != refusedBefore)
        return kExitFailed; // the controller has said so
    const auto write = [&](const std::string& file, std::span<const std::uint8_t> bytes) {
        const auto written = writePicture(file, bytes, out);
        return written ? kExitDone : fail(err, file, written.error().message);
    };
    ExitCode code = kExitDone;
    if (request.png) {
        if (!delegate.offscreenRep()) {
            return fail(err, source,
                        "no picture of " + std::to_string(delegate.OutputWidth()) + " x " +
                            std::to_string(delegate.OutputHeight()) + " pixels can be made");
        }
        const auto png = encodePng(*delegate.offscreenRep());
        code = png ? write(*request.png, *png) : fail(err, *request.png, png.error().message);
    }
    if (request.psd && code == kExitDone) {
        KPPSDError error;
        const ByteBuffer psd = delegate.createPSDData(&error);
        code = error ? fail(err, *request.psd, error.message) : write(*request.psd, psd);
    }
    return code;
}

} // namespace wallgrid
