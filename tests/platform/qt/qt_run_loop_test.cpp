// SPDX-License-Identifier: MIT
#include "platform/qt/qt_run_loop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <optional>
#include <string>

using namespace wallgrid;

namespace {

template <class Done>
bool runUntil(Done done)
{
    const QDeadlineTimer deadline(10'000);
    while (!done() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    return done();
}

TEST(QtRunLoop, FiresInOrderOfTimeThenOfScheduling)
{
    QtRunLoop loop;
    std::string fired;
    const auto note = [&](char letter) { return [&fired, letter] { fired += letter; }; };
    loop.scheduleTimer(0.06, note('d'));
    loop.scheduleTimer(0.03, note('b'));
    loop.scheduleTimer(0, [&] {
        fired += 'a';
        loop.scheduleTimer(0, note('A'));
    });
    loop.scheduleTimer(0.03, note('c'));
    EXPECT_EQ(fired, "") << "control was not back in the loop";
    EXPECT_TRUE(runUntil([&] { return fired.size() == 5; }));
    EXPECT_EQ(fired, "aAbcd");
}

TEST(QtRunLoop, DropsItsTimersWhenItEnds)
{
    QtRunLoop other;
    bool otherFired = false;
    std::optional<QtRunLoop> loop(std::in_place);
    loop->scheduleTimer(0, [] { ADD_FAILURE() << "fired after the end"; });
    loop.reset();
    other.scheduleTimer(0.02, [&] { otherFired = true; });
    EXPECT_TRUE(runUntil([&] { return otherFired; }));
}

} // namespace
