// SPDX-License-Identifier: MIT
//
// Lets the n-th request for memory fail, for every n of a piece of work: the request alone, and all that follow it as
// well.
#include "app/preset_file.h"
#include "app/scripted_program.h"
#include "app/undo_history.h"
#include "cli/command_line.h"
#include "items/gx_still.h"
#include "png/png_encoder.h"
#include "qt/qt_toolkit.h"

#include <QGuiApplication>
#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <fstream>
#include <libdeflate.h>
#include <new>
#include <sstream>
#include <sys/mman.h>

namespace {

constexpr long kNever = -1;

std::atomic<long> requestsLeft = kNever; ///< before one is refused
std::atomic<bool> allThatFollow = false;
std::atomic<long> refused = 0;

bool refuses()
{
    if (requestsLeft == kNever || (requestsLeft > 0 && requestsLeft-- > 0))
        return false;
    ++refused;
    if (!allThatFollow)
        requestsLeft = kNever;
    return true;
}

void* allocate(std::size_t bytes)
{
    return refuses() ? nullptr : std::malloc(bytes);
}

/// The program or the standard library. The toolkit does not bear it: an image reader, for one, keeps a lock for ever.
bool isOurs(const void* caller)
{
    const auto library = [](const void* address) {
        Dl_info info{};
        dladdr(address, &info);
        return info.dli_fbase;
    };
    static const void* const program = library(reinterpret_cast<const void*>(&isOurs));
    static const void* const standardLibrary = library(reinterpret_cast<const void*>(&std::terminate));
    const void* const from = library(caller);
    return from == program || from == standardLibrary;
}

} // namespace

void* operator new(std::size_t bytes)
{
    const bool mayRefuse = requestsLeft != kNever && isOurs(__builtin_return_address(0));
    void* const block = mayRefuse ? allocate(bytes) : std::malloc(bytes);
    if (!block)
        throw std::bad_alloc();
    return block;
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

// The linker leads the calls of our own libraries to these, by these names.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" {
void* __real_mmap(void*, std::size_t, int, int, int, off_t);
void* __wrap_mmap(void* at, std::size_t bytes, int protection, int flags, int file, off_t offset)
{
    return refuses() ? MAP_FAILED : __real_mmap(at, bytes, protection, flags, file, offset);
}
void* __real_aligned_alloc(std::size_t, std::size_t);
void* __wrap_aligned_alloc(std::size_t alignment, std::size_t bytes)
{
    return refuses() ? nullptr : __real_aligned_alloc(alignment, bytes);
}
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)

using namespace wallgrid;

namespace {

const std::string kOld = "what was there before";

class FailingMemory : public ScriptedProgram {
protected:
    FailingMemory()
    {
        libdeflate_set_memory_allocator(allocate, std::free);
        put("ABC", "XYZ");
        delegate.setOutputWidth(160);
        delegate.setOutputHeight(90);
        runLoop.advance(1);
        history.start();
        write("image.png", *encodePng(*GXScreen::init()->thumbnail()->firstRepresentation()));
        const StillRef still = GXStill::initWithimage(nullptr);
        still->setImageURL(location("image.png"));
        const ScreenRef screen = GXScreen::init();
        screen->setLabel(makeString(u"Left"));
        screen->setScreenFontEnable(true);
        screen->setXYFontEnable(true);
        screen->setCircleEnable(true);
        still->setLabel(makeString(u"Image"));
        write("small.mpr", writeProject({100, 200, {screen, still, screen->copy()}}));
        runExport({path("small.mpr"), path("expected.png"), path("expected.psd")}, std::cout, std::cerr);
    }

    template <class Bytes>
    void write(const std::string& name, const Bytes& bytes) const
    {
        std::ofstream(path(name))
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    std::string read(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(path(name)).rdbuf();
        return text.str();
    }

    /// Does the work with every request refused in turn and then with none; `check` comes after each time.
    template <class Work, class Check>
    static void refuseEach(const char* name, Work work, Check check)
    {
        for (const bool lasting : {false, true}) {
            long request = 0;
            for (bool met = true; met && !HasFailure(); ++request) {
                SCOPED_TRACE(std::string(name) + ", request " + std::to_string(request) +
                             (lasting ? " and all more" : ""));
                refused = 0;
                allThatFollow = lasting;
                requestsLeft = request;
                const bool done = completes(work);
                requestsLeft = kNever;
                met = refused > 0;
                check(done, met);
            }
            std::printf("%s: %ld requests\n", name, request - 1);
            EXPECT_GT(request, 30);
        }
    }
    template <class Work>
    static bool completes(Work work)
    {
        try {
            work();
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    std::vector<Bytes> document() const
    {
        return {writeProject(delegate.project()), writePresets(*delegate.presetScreensArray())};
    }

    UndoHistory history{delegate, runLoop};
};

TEST_F(FailingMemory, WritesWholeFilesOrNone)
{
    choose("small.mpr");
    delegate.openProject();
    runLoop.advance(2);
    history.start();
    const auto before = document();
    const struct {
        const char* file;
        const char* chosen;
        void (GXAppDelegate::*save)();
        std::string expected;
    } cases[] = {
        {"new.mpr", "new.mpr", &GXAppDelegate::saveProject, read("small.mpr")},
        {"new.png", "new.png", &GXAppDelegate::saveAction, read("expected.png")},
        {"new.psd", "new", &GXAppDelegate::savePSD, read("expected.psd")},
    };
    for (const auto& [file, chosen, save, expected] : cases) {
        choose(chosen);
        write(file, kOld);
        refuseEach(
            file, [&, save = save] { (delegate.*save)(); },
            [&, file = file, expected = expected](bool done, bool met) {
                if (!done)
                    history.takeBackUnfinished();
                runLoop.advance(2);
                EXPECT_EQ(document(), before);
                const std::string now = read(file);
                EXPECT_TRUE(now == expected || (met && now == kOld)) << now.size() << " bytes";
                write(file, kOld);
            });
    }
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QtToolkit toolkit;
    return RUN_ALL_TESTS();
}
