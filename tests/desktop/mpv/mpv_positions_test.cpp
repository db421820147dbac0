// The player's positions, states and speeds.
#include "contracts/player_contract.h"
#include "mpv_player_test.h"

namespace contracts {

namespace {

struct MpvBench : PlayerBench {
    platform::MediaPlayer& player() override { return mpv; }
    base::Text recording() override { return u"" MEDIA_FOLDER "/noise.wav"; }
    base::Text unplayable() override { return u"" MEDIA_FOLDER "/none.wav"; }
    void run(int ms) override { fakes::runLoop(ms); }

    desktop::MpvPlayer mpv{{"null"}};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Mpv, PlayerContract, testing::Values(make<PlayerBench, MpvBench>));

} // namespace contracts

namespace listening {

TEST_F(MpvPlayerTest, PausedSteps_DoNotDrift_AndDoNotBlock) {
    start();
    player_.setCurrentPosition(2);
    player_.pause();
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 4000; ++i) {
        player_.setCurrentPosition(player_.currentPosition() + (i % 2 == 0 ? 0.25 : -0.25));
        // In the second half, more requests at once than mpv's queue holds.
        if (i < 2000 && i % 3 == 0)
            QCoreApplication::processEvents();
    }
    EXPECT_LT(clock.elapsed(), 4000) << "a millisecond a step";
    EXPECT_EQ(player_.currentPosition(), 2);
    player_.setCurrentPosition(player_.currentPosition() + 1);
    runLoop(100);
    EXPECT_EQ(player_.currentPosition(), 3);
    player_.play();
    expectPlaysOnFrom(3);
}

// A 60 s recording without an index: mpv estimates its length from the first second.
TEST_F(MpvPlayerTest, EstimatedLength_IsNoLimit_AndIsMeasured) {
    for (const auto& [file, guessesLess] : {std::pair{u"" MEDIA_FOLDER "/dense_first.mp3", true},
                                            {u"" MEDIA_FOLDER "/thin_first.mp3", false}}) {
        player_.setURL(file);
        ASSERT_TRUE(eventually([&] { return player_.duration() > 0; }));
        ASSERT_EQ(player_.duration() < 50, guessesLess);
        ASSERT_EQ(player_.duration() > 70, !guessesLess);
        player_.pause();
        player_.setCurrentPosition(55);
        runLoop(200);
        EXPECT_EQ(player_.currentPosition(), 55);
        EXPECT_TRUE(eventually([&] { return std::abs(player_.duration() - 60) < 0.2; }, 5000));
        player_.setCurrentPosition(1000);
        EXPECT_EQ(player_.currentPosition(), player_.duration());
    }
}

TEST_F(MpvPlayerTest, PauseShortlyBeforeTheEnd_ResumesAndPlaysTheRest) {
    start();
    player_.setCurrentPosition(wavLength - 0.4);
    ASSERT_TRUE(eventually([&] { return player_.currentPosition() > wavLength - 0.25; }));
    player_.pause();
    runLoop(50);
    const double held = player_.currentPosition();
    player_.play();
    EXPECT_TRUE(eventually([&] { return player_.currentPosition() > held + 0.05; }, 500));
    EXPECT_EQ(player_.playState(), PlayState::Playing);
    EXPECT_TRUE(reaches(PlayState::Stopped));
}

TEST_F(MpvPlayerTest, EndOfFile_WhileTheProgramIsBusy_BlocksNeitherSeekNorPlay) {
    for (const bool seeks : {true, false}) {
        player_.setURL(u"" MEDIA_FOLDER "/noise.mp3");
        ASSERT_TRUE(reaches(PlayState::Playing) && eventually([&] { return player_.duration() > 0; }));
        player_.setCurrentPosition(player_.duration() - 0.2);
        runLoop(50);
        // the engine has reached the end and paused, of which the program does not know yet
        QThread::msleep(500);
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

} // namespace listening
