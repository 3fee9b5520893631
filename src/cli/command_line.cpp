// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <ostream>
#include <string>

namespace wallgrid {

Request parseCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    CLI::App app("Wallgrid builds pixel-map test images for LED video walls.\n"
                 "Without a command it opens its window.",
                 "wallgrid");
    app.set_version_flag("-V,--version", "wallgrid " WALLGRID_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.require_subcommand(0, 1);

    WindowRequest window;
    app.add_option("FILE", window.file, "Project file to open in the window")->type_name("");

    ExportRequest exported;
    CLI::App* exportCommand = app.add_subcommand("export", "Compose a project and write the picture; needs no display");
    exportCommand
        ->add_option("PROJECT", exported.project, "Project file, - is standard input; without one, the launch document")
        ->type_name("");
    exportCommand->add_option("--png", exported.png, "Write the output raster as a PNG; - is standard output")
        ->type_name("FILE");
    exportCommand->add_option("--psd", exported.psd, "Write a layered PSD; - is standard output")->type_name("FILE");

    bool quiet = false; // as it is
    exportCommand->add_flag("--no-clobber", exported.keepsFiles, "Replace no file that exists");
    CLI::Option* verbose = exportCommand->add_flag("-v,--verbose", exported.verbose, "Name each file that is written");
    exportCommand->add_flag("-q,--quiet", quiet, "Say only what failed, as without -v")->excludes(verbose);

    InfoRequest info;
    CLI::App* infoCommand = app.add_subcommand("info", "Print what a project holds; needs no display");
    infoCommand->add_option("PROJECT", info.project, "Project file; - is standard input")->type_name("")->required();
    infoCommand->add_flag("--json", info.json, "Print JSON, also of what failed");

    try {
        app.parse(argc, argv);
        if (exportCommand->parsed() && !exported.png && !exported.psd)
            throw CLI::RequiredError("nothing to write: --png FILE or --psd FILE");
        if (exported.png == "-" && exported.psd == "-")
            throw CLI::ValidationError("only one picture can go to standard output");
    } catch (const CLI::Success& success) { // help or version
        app.exit(success, out, err);
        return kExitDone;
    } catch (const CLI::ParseError& error) {
        err << "wallgrid: " << error.what() << "; see wallgrid --help\n";
        return kExitWrongUsage;
    }

    if (exportCommand->parsed())
        return exported;
    if (infoCommand->parsed())
        return info;
    return window;
}

} // namespace wallgrid
