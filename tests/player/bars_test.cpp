#include "fakes/workbench.h"

class VolumeBarTest : public testing::Test {
protected:
    void press(double y, int button = 1) {
        form.Image1.MouseMove({0, 180, y});
        form.Image1.MouseDown({button, 180, y});
    }
    base::Text volume() { return form.Image1.tag; }

    fakes::Workbench bench;
    player::Form1& form = bench.form();
    controls::Property<controls::Color>& color = form.Label5.foreColor;
    static constexpr controls::Color red = controls::rgb(255, 0, 0);
    static constexpr controls::Color white = controls::rgb(255, 255, 255);
};

TEST_F(VolumeBarTest, Start_TakesPlaceAndNumberFromTheSettings) {
    EXPECT_EQ(form.Image1.top, 561);
    EXPECT_EQ(form.Image1.left, 4672.5);
    EXPECT_EQ(bench.desktop.player.volume, 80);
    EXPECT_EQ(form.Label5.caption.get(), u" 80%");
    EXPECT_EQ(color, white);
}

TEST_F(VolumeBarTest, Click_PutsTheThumbThere_WithinTheBar) {
    struct Row {
        double y, top;
        int percent;
    };
    for (const Row& row : {Row{0, 360, 100}, Row{1200, 1365, 0}, Row{600, 862.5, 50}, Row{-50, 360, 100}}) {
        form.Image2.MouseUp({2, 45, row.y});
        EXPECT_EQ(form.Image1.top, row.top) << row.y;
        EXPECT_EQ(bench.desktop.player.volume, row.percent) << row.y;
        EXPECT_EQ(volume(), base::numberText(row.percent));
    }
}

TEST_F(VolumeBarTest, Drag_FollowsAtThePaceOfTheTimer_AndIsHeardOnMovesAndRelease) {
    press(100);
    form.Image1.MouseMove({1, 180, 500});
    EXPECT_EQ(form.Image1.top, 561);
    bench.desktop.loop.advance(10);
    EXPECT_EQ(form.Image1.top, 974); // 561 + 500 - 350 - 97.5 + 360, half to even
    EXPECT_EQ(bench.desktop.player.volume, 80);
    form.Image1.MouseUp({1, 180, 87});
    EXPECT_EQ(bench.desktop.player.volume, 39);
    bench.desktop.loop.advance(1000);
    EXPECT_EQ(form.Image1.top, 974);
}

TEST_F(VolumeBarTest, Drag_BeyondTheEnds_StaysOnTheBar) {
    for (const auto& [y, top] : {std::pair{-5000.0, 360.0}, std::pair{5000.0, 1365.0}}) {
        press(100);
        form.Image1.MouseMove({1, 180, y});
        bench.desktop.loop.advance(10);
        form.Image1.MouseMove({1, 180, y});
        EXPECT_EQ(form.Image1.top, top) << y;
        form.Image1.MouseUp({1, 180, y});
    }
    // A target that no 16-bit number holds is left out of that tick.
    press(100);
    form.Image1.MouseMove({1, 180, 90000});
    bench.desktop.loop.advance(10);
    form.Image1.MouseMove({0, 180, 90});
    EXPECT_EQ(form.Image1.top, 360);
}

TEST_F(VolumeBarTest, OtherButton_AndPassingMouse_MoveNothing) {
    press(100, 2);
    form.Image1.MouseMove({2, 180, 700});
    bench.desktop.loop.advance(50);
    EXPECT_EQ(form.Image1.top, 561);
    form.Image1.MouseUp({2, 180, 700});
    form.Image1.MouseMove({0, 180, 20});
    EXPECT_EQ(form.Image1.top, 561);
    EXPECT_EQ(bench.desktop.player.volume, 80);
}

TEST_F(VolumeBarTest, Fade_TakesEighteenTicks_FromRedToWhite) {
    form.Image2.MouseUp({1, 45, 600});
    EXPECT_EQ(color, red);
    bench.desktop.loop.advance(100);
    EXPECT_EQ(color, red);
    bench.desktop.loop.advance(100);
    EXPECT_EQ(color, controls::rgb(255, 15, 15));
    bench.desktop.loop.advance(1600);
    EXPECT_EQ(color, white);
    EXPECT_EQ(form.Timer3.interval(), 0);
}

TEST_F(VolumeBarTest, FadeAfterAChangeOfSpeed_StaysRed_AndTheNextOneFadesAgain) {
    form.mnuAumentaVelocità.Click();
    for (const auto expected : {red, white}) {
        form.Image2.MouseUp({1, 45, 600});
        bench.desktop.loop.advance(1800);
        EXPECT_EQ(color, expected);
    }
}

class SeekBarTest : public testing::Test {
protected:
    fakes::Workbench bench;
    player::Form1& form = bench.form();
    std::vector<std::string>& commands = bench.desktop.player.commands;
};

TEST_F(SeekBarTest, Release_GoesToTheWholeSecondBelow) {
    form.Label2.MouseUp({1, 2000, 10});
    EXPECT_TRUE(commands.empty()) << "without media";
    bench.open("talk.mp3", 100);
    bench.desktop.loop.advance(1000);
    for (const auto& [x, seek] :
         {std::pair{0.0, "seek 0"}, std::pair{4635.0, "seek 100"}, std::pair{2000.0, "seek 43"}}) {
        commands.clear();
        form.Label2.MouseUp({2, x, 10});
        EXPECT_THAT(commands, testing::ElementsAre(seek, "play")) << x;
    }
}

TEST_F(SeekBarTest, OnAPausedPlayer_EndsPausedBeforeTheClickedPlace) {
    bench.open("talk.mp3", 100);
    bench.desktop.loop.advance(5000);
    form.cmdPlay.Click();
    commands.clear();
    form.Label2.MouseUp({1, 2317.5, 10});
    EXPECT_THAT(commands, testing::ElementsAre("seek 50", "play", "seek 48", "pause"));
    EXPECT_FALSE(form.isPlaying());
    EXPECT_EQ(form.Label2.caption.get(), u"00:48 / 01:40");
}

TEST(Speed, Steps_StayWithinTheirTwoLimits) {
    fakes::Workbench bench;
    player::Form1& form = bench.form();
    EXPECT_FALSE(form.Label7.visible);
    struct Row {
        double rate;
        bool faster;
        base::Text shown;
    };
    const Row rows[] = {{1.0, true, u"1.1 x"},  {1.0, false, u"0.9 x"},  {0.6, false, u"0.5 x"},
                        {0.5, false, u"0.5 x"}, {4.9, true, u"4.9 x"},   {4.8999999999999995, true, u"5 x"},
                        {1.1, true, u"1.2 x"},  {0.55, false, u"0.55 x"}};
    for (const Row& row : rows) {
        bench.desktop.player.setRate(row.rate);
        (row.faster ? form.mnuAumentaVelocità : form.mnuDiminuisciVelocità).Click();
        EXPECT_EQ(form.Label7.caption.get(), row.shown) << row.rate;
        EXPECT_TRUE(form.Label7.visible);
    }
    form.mnuChiudi.Click();
    EXPECT_TRUE(form.Label7.visible);
}
