// SPDX-License-Identifier: MIT
#include "cli/command_line.h"
#include "qt/qt_toolkit.h"
#include "ui/window/application.h"

#include <QGuiApplication>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <new>
#include <string>
#include <unistd.h>
#include <variant>

namespace {

using namespace wallgrid;

bool isSet(const char* name)
{
    const char* const value = std::getenv(name);
    return value && *value;
}

bool hasDisplay()
{
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

/// Where a session has no bus, libdbus would run a program that starts one.
void startNoSessionBus()
{
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    if (!isSet("DBUS_SESSION_BUS_ADDRESS") &&
        (!runtime || ::access((std::string(runtime) + "/bus").c_str(), F_OK) != 0))
        ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
}

/// Standard error belongs to the one line that says what failed; Qt's remarks about the session do not.
void dropRemarks(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << message.toStdString() << '\n';
}

struct Run {
    int& argc; ///< what Qt may look at: the program's name
    char** argv;

    int operator()(ExitCode code) const { return code; }

    int operator()(const WindowRequest& request) const
    {
        if (!hasDisplay()) {
            std::cerr << "wallgrid: there is no display to open a window on; wallgrid export needs none\n";
            return kExitFailed;
        }
        startNoSessionBus();
        GuardedApplication application(argc, argv);
        const QtToolkit toolkit;
        return runApplication(application, request.file);
    }

    int operator()(const ExportRequest& request) const
    {
        return withoutDisplay([&] { return runExport(request, std::cout, std::cerr); });
    }

    int operator()(const InfoRequest& request) const
    {
        return withoutDisplay([&] { return runInfo(request, std::cout, std::cerr); });
    }

    template <class Command>
    int withoutDisplay(Command command) const
    {
        qInstallMessageHandler(dropRemarks);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        const QGuiApplication application(argc, argv); // fonts need one
        const QtToolkit toolkit;
        return command();
    }
};

} // namespace

int main(int argc, char** argv)
try {
    // A write past the file size limit then fails like one on a full disk, and leaves nothing behind.
    std::signal(SIGXFSZ, SIG_IGN);
    const Request request = parseCommandLine(argc, argv, std::cout, std::cerr);
    int qtArgc = 1;
    return std::visit(Run{qtArgc, argv}, request);
} catch (const std::bad_alloc&) {
    std::cerr << "wallgrid: there is not enough memory\n";
    return wallgrid::kExitFailed;
}
