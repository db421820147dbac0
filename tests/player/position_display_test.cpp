#include "fakes/workbench.h"

class PositionDisplayTest : public testing::Test {
protected:
    fakes::Workbench bench;
    player::Form1& form = bench.form();
};

TEST_F(PositionDisplayTest, Bar_GrowsWithThePosition_InWholeTwips) {
    bench.open("talk.mp3", 180);
    form.cmdPlay.Click();
    form.HoverPlay = 0;
    form.Label2.width = 3000;
    const std::pair<double, double> rows[] = {{90, 1500}, {180, 3000}, {0.13, 2}, {0, 0}};
    for (const auto& [position, width] : rows) {
        bench.desktop.player.setCurrentPosition(position);
        form.Timer1.Tick();
        EXPECT_EQ(form.Shape1.width, width) << position;
    }
    EXPECT_EQ(form.Label2.caption.get(), u"0:00 / 03:00");
    EXPECT_EQ(form.cmdPlay.picture.get(), form.folder.files(u"play.jpg"));
}

TEST_F(PositionDisplayTest, UnknownLength_LeavesTheBar) {
    bench.open("stream.ts", 0);
    form.cmdPlay.Click();
    form.Shape1.width = 777;
    bench.desktop.player.setCurrentPosition(12);
    form.Timer1.Tick();
    EXPECT_EQ(form.Shape1.width, 777);
}

TEST_F(PositionDisplayTest, TickWithoutAChange_TellsNobody) {
    bench.open("talk.mp3", 180);
    form.cmdPlay.Click();
    form.Timer1.Tick();
    int changes = 0;
    form.forEachControl([&](auto& control) { control.observe([&] { ++changes; }); });
    form.Timer1.Tick();
    EXPECT_EQ(changes, 0);
}
