// SPDX-License-Identifier: MIT
#include "qt/qt_run_loop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

using namespace wallgrid;

TEST(QtRunLoop, FiresInOrderOfTimeThenOfSchedulingWhatIsStillWanted)
{
    QtRunLoop loop;
    std::optional<QtRunLoop> ended(std::in_place);
    const Registration late = ended->scheduleTimer(0, [] { ADD_FAILURE() << "fired after the end"; });
    ended.reset();
    std::string fired;
    const auto note = [&](char letter) { return [&fired, letter] { fired += letter; }; };
    std::vector<Registration> timers;
    const auto schedule = [&](double seconds, auto handler) { timers.push_back(loop.scheduleTimer(seconds, handler)); };
    schedule(0.06, note('d'));
    schedule(0.03, note('b'));
    schedule(0, [&] {
        fired += 'a';
        schedule(0, note('A'));
    });
    schedule(0.03, note('x'));
    timers.pop_back();
    schedule(0.03, note('c'));
    EXPECT_EQ(fired, "") << "control was not back in the loop";
    const QDeadlineTimer deadline(10'000);
    while (fired.size() < 5 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    EXPECT_EQ(fired, "aAbcd");
}
