// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <variant>

namespace wallgrid {

/// How the program ends, on the command line and with a window.
enum ExitCode : int {
    kExitDone = 0,
    kExitFailed = 1,     ///< with one line on standard error that names the file and the reason
    kExitWrongUsage = 2, ///< with one line on standard error
};

/// What the words on the command line ask for. File names are as given; "-" is standard input for a project and
/// standard output for a picture.
struct WindowRequest {
    std::optional<std::string> file;
};

struct ExportRequest {
    std::optional<std::string> project; ///< none: the launch document
    std::optional<std::string> png;
    std::optional<std::string> psd;
    bool keepsFiles = false; ///< a file that exists is not replaced
    bool verbose = false;    ///< each file that was read or written is named on standard error
};

struct InfoRequest {
    std::string project;
    bool json = false; ///< also of what failed
};

using Request = std::variant<WindowRequest, ExportRequest, InfoRequest, ExitCode>;

/// Reads the command line. Help and version go to `out`, what is wrong with the words to `err`; both give an ExitCode.
Request parseCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

/// The commands. They need an installed toolkit for texts and images, and no display.
ExitCode runExport(const ExportRequest& request, std::ostream& out, std::ostream& err);
ExitCode runInfo(const InfoRequest& request, std::ostream& out, std::ostream& err);

} // namespace wallgrid
