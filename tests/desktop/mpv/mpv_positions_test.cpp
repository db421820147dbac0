// Positions, play states and speeds of the player.
#include "mpv_player_test.h"

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace listening {

TEST_F(MpvPlayerTest, Write_ReadsBackExactly_AndIsHeardFromThere) {
    start();
    runLoop(400);
    const double back = player_.currentPosition() - 0.3;
    player_.setCurrentPosition(back);
    player_.pause();
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(player_.currentPosition(), back);
        runLoop(5);
    }
    EXPECT_EQ(player_.playState(), PlayState::Paused);
    player_.play();
    expectPlaysOnFrom(back);
}

TEST_F(MpvPlayerTest, PausedSteps_DoNotDrift) {
    start();
    player_.setCurrentPosition(2);
    player_.pause();
    for (int i = 0; i < 4000; ++i) {
        player_.setCurrentPosition(player_.currentPosition() + (i % 2 == 0 ? 0.25 : -0.25));
        // At last more at once than mpv's queue takes.
        if (i < 2000 && i % 3 == 0)
            QCoreApplication::processEvents();
    }
    EXPECT_EQ(player_.currentPosition(), 2);
    player_.setCurrentPosition(player_.currentPosition() + 1);
    runLoop(100);
    EXPECT_EQ(player_.currentPosition(), 3);
    player_.play();
    expectPlaysOnFrom(3);
}

TEST_F(MpvPlayerTest, Write_IsClamped_AndNonsenseIsIgnored) {
    start();
    player_.setCurrentPosition(2);
    player_.pause();
    ASSERT_TRUE(waitFor([&] { return player_.duration() > 0; }));
    const double length = player_.duration();
    const std::pair<double, double> rows[] = {{-3, 0},
                                              {1e9, length},
                                              {1, 1},
                                              {std::nan(""), 1},
                                              {std::numeric_limits<double>::infinity(), 1},
                                              {-std::numeric_limits<double>::infinity(), 1}};
    for (const auto& [written, read] : rows) {
        player_.setCurrentPosition(written);
        EXPECT_EQ(player_.currentPosition(), read) << written;
        runLoop(30);
        EXPECT_EQ(player_.currentPosition(), read) << written;
    }
}

TEST_F(MpvPlayerTest, EndOfMedia_StopsAfterTheLastSound_AndPlayGoesOnFromTheStart) {
    start();
    player_.setCurrentPosition(wavLength - 0.8);
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(reaches(PlayState::Stopped));
    EXPECT_GE(clock.elapsed(), 780);
    EXPECT_EQ(player_.currentPosition(), 0);
    EXPECT_EQ(player_.currentPositionString(), u"");
    EXPECT_EQ(player_.durationString(), u"00:04");
    runLoop(50);
    player_.play();
    expectPlaysOnFrom(0);
}

TEST_F(MpvPlayerTest, PauseShortlyBeforeTheEnd_LeavesTheRestToBePlayed) {
    start();
    player_.setCurrentPosition(wavLength - 0.4);
    ASSERT_TRUE(waitFor([&] { return player_.currentPosition() > wavLength - 0.25; }));
    player_.pause();
    runLoop(50);
    const double held = player_.currentPosition();
    player_.play();
    EXPECT_TRUE(waitFor([&] { return player_.currentPosition() > held + 0.05; }, 500));
    EXPECT_EQ(player_.playState(), PlayState::Playing);
    EXPECT_TRUE(reaches(PlayState::Stopped));
}

TEST_F(MpvPlayerTest, EndWhileTheProgramIsBusy_HoldsNeitherASeekNorAPlayBack) {
    for (const bool seeks : {true, false}) {
        player_.setURL(u"" MEDIA_FOLDER "/noise.mp3");
        ASSERT_TRUE(reaches(PlayState::Playing) && waitFor([&] { return player_.duration() > 0; }));
        player_.setCurrentPosition(player_.duration() - 0.2);
        runLoop(50);
        QThread::msleep(500); // the engine has come to the end and paused, which the program has not heard of
        if (seeks) {
            player_.setCurrentPosition(1);
        } else {
            player_.pause();
            runLoop(50);
            player_.play();
        }
        expectPlaysOnFrom(seeks ? 1 : 0);
    }
}

TEST_F(MpvPlayerTest, Stop_GoesBackToTheStart_AlsoDuringTheLoad) {
    for (const int delay : {0, 10, 500}) {
        player_.setURL(folder_.text("a.wav"));
        runLoop(delay);
        player_.stop();
        for (int i = 0; i < 20; ++i) {
            EXPECT_EQ(player_.playState(), PlayState::Stopped) << delay;
            EXPECT_EQ(player_.currentPosition(), 0);
            EXPECT_EQ(player_.currentPositionString(), u"");
            runLoop(5);
        }
        player_.play();
        expectPlaysOnFrom(0);
    }
}

TEST_F(MpvPlayerTest, PositionWrittenDuringTheLoad_IsWhereItStarts) {
    for (const unsigned long busy : {0, 60}) {
        player_.setURL(folder_.text("a.wav"));
        player_.setCurrentPosition(2);
        QThread::msleep(busy);
        ASSERT_TRUE(waitFor([&] {
            EXPECT_GE(player_.currentPosition(), 2);
            return player_.currentPosition() > 2 || HasFailure();
        }));
        EXPECT_LT(player_.currentPosition(), 2.1);
        EXPECT_EQ(player_.playState(), PlayState::Playing);
    }
}

TEST_F(MpvPlayerTest, Rate_ReadsBackAsGiven_AndHoldsOverFiles) {
    for (const double rate : {1.2000000000000002, 0.5, 4.999999999999999, 3.0}) {
        player_.setRate(rate);
        EXPECT_EQ(player_.rate(), rate);
    }
    player_.setVolume(150);
    for (int i = 0; i < 2; ++i) {
        start();
        const double from = player_.currentPosition();
        QElapsedTimer clock;
        clock.start();
        EXPECT_TRUE(waitFor([&] { return player_.currentPosition() > from + 1.8; }, 1200));
        EXPECT_GT(clock.elapsed(), 550);
        EXPECT_EQ(player_.rate(), 3.0);
    }
}

TEST_F(MpvPlayerTest, HeldKeys_DoNotHoldTheProgramUp) {
    start();
    std::vector<double> calls;
    for (int i = 0; i < 200; ++i) {
        QElapsedTimer clock;
        clock.start();
        if (i % 3 == 0)
            player_.pause();
        else if (i % 3 == 1)
            player_.play();
        player_.setCurrentPosition(1 + 0.01 * i);
        calls.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        runLoop(5);
    }
    std::sort(calls.begin(), calls.end());
    EXPECT_LT(calls[calls.size() / 2], 1) << "milliseconds";
    player_.pause();
    player_.setCurrentPosition(0.5);
    player_.play();
    expectPlaysOnFrom(0.5);
}

} // namespace listening
