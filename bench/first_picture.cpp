// SPDX-License-Identifier: MIT
//
// first_picture STARTS PROGRAM YARDSTICK: starts the two in turns, each as often as told, on an X display that nothing
// else draws on, and prints for each the milliseconds of its fastest start: until the display shows the very picture
// that stays when the program is left alone.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/damage.h>

namespace {

using Clock = std::chrono::steady_clock;
using Picture = std::vector<std::uint8_t>;

// Milliseconds.
constexpr int kLongestStart = 20'000;
constexpr int kSettled = 1000;
constexpr int kCleared = 200;

void require(bool success, const std::string& what)
{
    if (success)
        return;
    std::cerr << "first_picture: " << what << " failed\n";
    std::exit(1);
}

template <class Reply>
std::unique_ptr<Reply, void (*)(void*)> owned(Reply* reply)
{
    require(reply != nullptr, "a request to the X server");
    return {reply, std::free};
}

/// The X display that DISPLAY names, seen from outside the programs that draw on it.
class Display {
public:
    Display()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        require(xcb_connection_has_error(m_connection) == 0, "connecting to the X server");
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        owned(xcb_damage_query_version_reply(
            m_connection, xcb_damage_query_version(m_connection, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION),
            nullptr));
        m_damage = xcb_generate_id(m_connection);
        xcb_damage_create(m_connection, m_damage, m_screen->root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display() { xcb_disconnect(m_connection); }

    /// Waits until something is drawn; false when nothing was for so many milliseconds.
    bool waitForDrawing(int milliseconds)
    {
        xcb_flush(m_connection);
        const auto event = [this] {
            return std::unique_ptr<void, void (*)(void*)>(xcb_poll_for_event(m_connection), std::free);
        };
        bool drawn = false;
        for (pollfd waiting{xcb_get_file_descriptor(m_connection), POLLIN, 0}; !drawn;) {
            while (event())
                drawn = true;
            if (!drawn && poll(&waiting, 1, milliseconds) == 0)
                return false;
        }
        xcb_damage_subtract(m_connection, m_damage, XCB_NONE, XCB_NONE);
        return true;
    }

    /// What it shows when nothing was drawn for so many milliseconds.
    Picture lastingPicture(int milliseconds)
    {
        while (waitForDrawing(milliseconds)) {
        }
        return picture();
    }

    Picture picture()
    {
        const auto image =
            owned(xcb_get_image_reply(m_connection,
                                      xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root, 0, 0,
                                                    m_screen->width_in_pixels, m_screen->height_in_pixels, ~0U),
                                      nullptr));
        const std::uint8_t* const bytes = xcb_get_image_data(image.get());
        return {bytes, bytes + xcb_get_image_data_length(image.get())};
    }

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    xcb_damage_damage_t m_damage = 0;
};

/// A program in a session of its own that remembers nothing, ended without being asked.
class Start {
public:
    explicit Start(std::string program)
    {
        require(mkdtemp(m_folder.data()) != nullptr, m_folder);
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
            setenv(name, m_folder.c_str(), 1);
        char* const arguments[] = {program.data(), nullptr};
        require(posix_spawn(&m_process, program.c_str(), nullptr, nullptr, arguments, environ) == 0, program);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;
    ~Start()
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        std::filesystem::remove_all(m_folder);
    }

private:
    std::string m_folder = std::filesystem::temp_directory_path() / "wallgrid-bench-XXXXXX";
    pid_t m_process = 0;
};

/// One of the two programs, and what is known of it.
struct Program {
    std::string file;
    Picture picture;
    double shortest = std::numeric_limits<double>::max();
};

void learnPicture(Display& display, Program& program)
{
    const Start start(program.file);
    require(display.waitForDrawing(kLongestStart), "seeing a picture of " + program.file);
    program.picture = display.lastingPicture(kSettled);
}

double millisecondsToPicture(Display& display, const Program& program)
{
    const auto begin = Clock::now();
    const Start start(program.file);
    while (true) {
        require(display.waitForDrawing(kLongestStart), "seeing the same picture of " + program.file);
        const std::chrono::duration<double, std::milli> elapsed = Clock::now() - begin;
        if (display.picture() == program.picture)
            return elapsed.count();
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    Display display;
    const Picture empty = display.lastingPicture(kSettled);
    Program programs[] = {{argv[2], {}}, {argv[3], {}}};
    for (int i = 0; i <= std::atoi(argv[1]); ++i) {
        for (Program& program : programs) {
            require(display.lastingPicture(kCleared) == empty, "clearing the display");
            if (i == 0)
                learnPicture(display, program);
            else
                program.shortest = std::min(program.shortest, millisecondsToPicture(display, program));
        }
    }
    std::cout << programs[0].shortest << ' ' << programs[1].shortest << '\n';
}
