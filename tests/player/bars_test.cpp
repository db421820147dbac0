#include "fakes/workbench.h"

using testing::ElementsAre;

struct VolumeBarTest : fakes::WorkbenchTest {
    // Drags the thumb to `y` for one tick of its timer.
    void drag(double y, int button = 1) {
        thumb.MouseMove({0, 180, 100});
        thumb.MouseDown({button, 180, 100});
        thumb.MouseMove({button, 180, y});
        desktop.loop.advance(10);
    }

    controls::Picture& thumb = form().Image1;
};

TEST_F(VolumeBarTest, Click_MovesTheThumb_WithinTheBar) {
    for (const auto& [y, top, percent] :
         {std::tuple{-50., 360., 100}, {0., 360., 100}, {600., 862.5, 50}, {1200., 1365., 0}}) {
        form().Image2.MouseUp({1, 45, y});
        desktop.loop.advance(100);
        EXPECT_EQ(thumb.top, top) << y;
        EXPECT_EQ(player.volume, percent) << y;
    }
}

TEST_F(VolumeBarTest, Drag_MovesTheThumbWithTheTimer_AndSetsTheVolumeOnRelease) {
    drag(700, 2);
    EXPECT_EQ(thumb.top, 561) << "another button";
    thumb.MouseUp({2, 180, 700});
    drag(500);
    EXPECT_EQ(thumb.top, 974); // 561 + 500 - 350 - 97.5 + 360, rounded half to even
    EXPECT_EQ(player.volume, 80) << "the volume of the settings";
    thumb.MouseUp({1, 180, 87});
    EXPECT_EQ(player.volume, 39);
    desktop.loop.advance(1000);
    EXPECT_EQ(thumb.top, 974);
}

TEST_F(VolumeBarTest, Drag_BeyondTheEnds_IsLimitedToTheBar) {
    // The last target overflows a 16-bit number and is ignored.
    for (const auto& [y, top] : {std::pair{-5000., 360.}, {5000., 1365.}, {90000., 360.}}) {
        drag(y);
        thumb.MouseMove({1, 180, y});
        EXPECT_EQ(thumb.top, top) << y;
        thumb.MouseUp({1, 180, y});
    }
}

TEST_F(VolumeBarTest, Fade_EndsInWhite_ButOnceInRedAfterASpeedChange) {
    const auto colorAfterFade = [&] {
        form().Image2.MouseUp({1, 45, 600});
        desktop.loop.advance(1800);
        return form().Label5.foreColor.get();
    };
    EXPECT_EQ(colorAfterFade(), controls::rgb(255, 255, 255));
    form().mnuAumentaVelocità.Click();
    EXPECT_EQ(colorAfterFade(), controls::rgb(255, 0, 0));
    EXPECT_EQ(colorAfterFade(), controls::rgb(255, 255, 255));
}

TEST(SeekBar, Release_SeeksToTheWholeSecond_AndTwoSecondsBackIfPaused) {
    fakes::Workbench bench;
    const auto commandsOfRelease = [&](double x) {
        bench.player.commands.clear();
        bench.form().Label2.MouseUp({2, x, 10});
        return bench.player.commands;
    };
    EXPECT_THAT(commandsOfRelease(2000), ElementsAre()) << "without a recording";
    bench.open("talk.mp3", 100);
    bench.desktop.loop.advance(1000);
    for (const auto& [x, seek] : {std::pair{0.0, "seek 0"}, {4635.0, "seek 100"}, {2000.0, "seek 43"}})
        EXPECT_THAT(commandsOfRelease(x), ElementsAre(seek, "play"));
    bench.form().cmdPlay.Click();
    EXPECT_THAT(commandsOfRelease(2317.5), ElementsAre("seek 50", "play", "seek 48", "pause"));
    EXPECT_EQ(bench.form().Label2.caption.get(), u"00:48 / 01:40");
    bench.form().mnuChiudi.Click();
    EXPECT_THAT(commandsOfRelease(2000), ElementsAre()) << "after closing";
}

TEST(Speed, Steps_StayWithinBothLimits) {
    fakes::Workbench bench;
    player::Form1& form = bench.form();
    const std::tuple<double, controls::MenuItem&, base::TextView> rows[] = {
        {1.1, form.mnuAumentaVelocità, u"1.2 x"},
        {4.8999999999999995, form.mnuAumentaVelocità, u"5 x"},
        {4.9, form.mnuAumentaVelocità, u"4.9 x"},
        {0.6, form.mnuDiminuisciVelocità, u"0.5 x"},
        {0.55, form.mnuDiminuisciVelocità, u"0.55 x"}};
    for (const auto& [rate, command, shown] : rows) {
        bench.player.setRate(rate);
        command.Click();
        EXPECT_EQ(form.Label7.caption.get(), shown) << rate;
        EXPECT_TRUE(form.Label7.visible);
    }
}
