#include "controls/controls.h"
#include "controls/timer.h"
#include "fakes/virtual_loop.h"

#include <gtest/gtest.h>

TEST(Timer, Fires_OnlyWhileEnabledAndWithAPeriod) {
    fakes::VirtualLoop loop;
    controls::Timer timer(loop);
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    loop.advance(1000);
    EXPECT_EQ(ticks, 0);
    timer.setInterval(100);
    loop.advance(250);
    EXPECT_EQ(ticks, 2);
    timer.setEnabled(false);
    timer.setInterval(100);
    loop.advance(1000);
    EXPECT_EQ(ticks, 2);
    timer.setEnabled(true);
    loop.advance(100);
    EXPECT_EQ(ticks, 3);
}

TEST(Timer, SamePeriodAgain_BeginsTheCountAnew) {
    fakes::VirtualLoop loop;
    controls::Timer timer(loop);
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    timer.setInterval(1300);
    for (int i = 0; i < 10; ++i) {
        loop.advance(1000);
        timer.setInterval(1300);
    }
    EXPECT_EQ(ticks, 0);
    loop.advance(1300);
    EXPECT_EQ(ticks, 1);
}

TEST(Timer, Handler_MayStopItselfOrRunTheLoop) {
    fakes::VirtualLoop loop;
    controls::Timer once(loop);
    controls::Timer other(loop);
    int onces = 0;
    int others = 0;
    once.Tick = [&] {
        ++onces;
        once.setInterval(0);
        loop.advance(500); // a box is open
    };
    other.Tick = [&] { ++others; };
    once.setInterval(100);
    other.setInterval(50);
    loop.advance(1000);
    EXPECT_EQ(onces, 1);
    EXPECT_EQ(others, 20);
}
