// SPDX-License-Identifier: MIT
#include "qt/qt_run_loop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <optional>
#include <string>

using namespace wallgrid;

TEST(QtRunLoop, FiresInOrderOfTimeThenOfSchedulingUntilItEnds)
{
    QtRunLoop loop;
    std::optional<QtRunLoop> ended(std::in_place);
    ended->scheduleTimer(0, [] { ADD_FAILURE() << "fired after the end"; });
    ended.reset();
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
    const QDeadlineTimer deadline(10'000);
    while (fired.size() < 5 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    EXPECT_EQ(fired, "aAbcd");
}
