#include "controls/timer.h"
#include "fakes/virtual_loop.h"
#include "testing.h"

TEST(Timer, Tick_OnlyWhileEnabledWithAnInterval_EachSetterRestartsIt) {
    fakes::VirtualLoop loop;
    controls::Timer timer(loop);
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    const auto ticksIn = [&](int ms) {
        ticks = 0;
        loop.advance(ms);
        return ticks;
    };
    EXPECT_EQ(ticksIn(1000), 0);
    timer.setInterval(100);
    EXPECT_EQ(ticksIn(250), 2);
    timer.setInterval(100);
    EXPECT_EQ(ticksIn(99), 0);
    timer.setEnabled(false);
    timer.setInterval(100);
    EXPECT_EQ(ticksIn(1000), 0);
    timer.setEnabled(true);
    EXPECT_EQ(ticksIn(100), 1);
    timer.setInterval(0);
    EXPECT_EQ(ticksIn(1000), 0);
}
