// SPDX-License-Identifier: MIT
//
// long_session [ACTIONS [SEED]]: works with one program for so long, 20,000 actions unless said. It compares what the
// program holds after the first 1,000 actions, or the first half of fewer, and at the end, each time with the same
// document and no history. Fails when the heap has grown by more than a twentieth, or timers, observers or objects of
// the window by any.
#include "graphics/bitmap_memory.h"
#include "random_user.h"
#include "ui/recovery/recovery.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

using namespace wallgrid;

namespace {

/// More than there are outlines kept; then the same ones are, whatever was drawn before.
constexpr int kTexts = 1000;

struct Held {
    std::size_t heap;      ///< bytes
    std::size_t timers;    ///< that have not fired
    std::size_t observers; ///< of the document, its lists and items, and the history
    std::size_t objects;   ///< of the main window
};

/// Only the address sanitizer counts the heap exactly; elsewhere these are the bitmaps.
std::size_t bytesInUse()
{
    return BitmapMemory::alive() +
           (__sanitizer_get_current_allocated_bytes ? __sanitizer_get_current_allocated_bytes() : 0);
}

std::size_t observers(ProgramUnderTest& program)
{
    GXAppDelegate& delegate = program.delegate();
    std::size_t count = delegate.observers() + program.application.history().observers();
    for (const auto* list : {&delegate.arraycontroller(), &delegate.presetarraycontroller()}) {
        count += list->observers();
        for (const ItemRef& item : list->arrangedObjects())
            count += item->observers();
    }
    return count;
}

Held holds(ProgramUnderTest& program, RandomUser& user)
{
    user.startAnew();
    program.runLoop.advance(10);
    program.application.recovery()->finish();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::qWait(100); // for what was put off
    for (int i = 0; i < kTexts; ++i)
        program.toolkit.layOutText(std::to_string(i), 10);
    return {bytesInUse(), program.runLoop.pendingTimers(), observers(program),
            static_cast<std::size_t>(program.window().findChildren<QObject*>().size())};
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const int actions = argc > 1 ? std::atoi(argv[1]) : 20'000;
    const int first = std::min(1000, actions / 2);
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;

    ProgramUnderTest program;
    program.application.keepRecovery(program.path("recovery"));
    RandomUser user(program, program.folder.path(), seed);
    const auto work = [&](int count) {
        for (int i = 0; i < count; ++i)
            user.act();
        return holds(program, user);
    };
    const Held early = work(first);
    const Held late = work(actions - first);
    std::printf(
        "%d actions: heap %zu then %zu bytes, timers %zu then %zu, observers %zu then %zu, objects %zu then %zu\n",
        actions, early.heap, late.heap, early.timers, late.timers, early.observers, late.observers, early.objects,
        late.objects);
    const bool same = late.heap <= early.heap + early.heap / 20 && late.timers <= early.timers &&
                      late.observers <= early.observers && late.objects <= early.objects;
    return same ? EXIT_SUCCESS : EXIT_FAILURE;
}
