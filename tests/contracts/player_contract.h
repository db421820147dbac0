#pragma once

#include "contracts/contract.h"
#include "platform/media_player.h"

#include <cmath>
#include <limits>

namespace contracts {

// A player without a file, and its clock.
struct PlayerBench {
    virtual ~PlayerBench() = default;
    virtual platform::MediaPlayer& player() = 0;
    virtual base::Text recording() = 0; // path of four seconds of sound
    virtual base::Text unplayable() = 0;
    virtual void run(int ms) = 0;
};

using platform::PlayState;

struct PlayerContract : Contract<PlayerBench> {
    template <typename Condition>
    bool eventually(Condition condition) {
        for (int i = 0; i < 5000 && !condition(); ++i)
            bench->run(1);
        return condition();
    }
    bool reaches(PlayState state) {
        return eventually([&] { return player.playState() == state; });
    }
    void start() {
        player.setURL(bench->recording());
        ASSERT_TRUE(reaches(PlayState::Playing));
        ASSERT_TRUE(eventually([&] { return player.duration() > 0; }));
    }
    void expectPlaysOnFrom(double place) {
        EXPECT_TRUE(reaches(PlayState::Playing));
        EXPECT_GE(player.currentPosition(), place);
        EXPECT_LT(player.currentPosition(), place + 0.4);
        EXPECT_TRUE(eventually([&] { return player.currentPosition() > place + 0.2; }));
    }
    void expectNothingThere() {
        EXPECT_EQ(player.currentPosition() + player.duration(), 0);
        EXPECT_EQ(player.currentPositionString() + player.durationString(), u"");
    }

    platform::MediaPlayer& player = bench->player();
};

TEST_P(PlayerContract, File_StartsByItself_PlaysToItsEnd_AndThenFromTheStart) {
    std::vector<std::pair<base::Text, bool>> told;
    player.MediaChanged = [&] { told.emplace_back(player.URL(), player.duration() > 0); };
    player.setURL(bench->recording());
    EXPECT_EQ(player.playState(), PlayState::Transitioning);
    EXPECT_EQ(player.URL(), bench->recording());
    expectPlaysOnFrom(0);
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told.front(), std::pair(bench->recording(), false));
    EXPECT_EQ(told.back(), std::pair(bench->recording(), true));
    EXPECT_NEAR(player.duration(), 4, 0.1);
    player.setCurrentPosition(3.8);
    EXPECT_EQ(player.currentPositionString(), u"00:03");
    EXPECT_TRUE(reaches(PlayState::Stopped));
    EXPECT_EQ(player.currentPosition(), 0);
    EXPECT_EQ(player.currentPositionString(), u"");
    EXPECT_EQ(player.durationString(), u"00:04");
    player.play();
    expectPlaysOnFrom(0);
}

TEST_P(PlayerContract, WithoutMedia_NothingHappens) {
    start();
    player.setURL(u"");
    for (const bool closed : {false, true}) {
        if (closed) {
            start();
            player.close();
        }
        player.play();
        player.setCurrentPosition(1);
        player.stop();
        bench->run(100);
        EXPECT_EQ(player.playState(), PlayState::Undefined);
        EXPECT_EQ(player.URL(), closed ? bench->recording() : u"");
        expectNothingThere();
    }
}

TEST_P(PlayerContract, UnplayableFile_EndsInStopped_EachTime_AndTheNextFilePlays) {
    int failures = 0;
    player.Failed = [&](const base::Text& reason) { failures += reason.empty() ? 0 : 1; };
    player.setURL(bench->unplayable());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(player.playState(), PlayState::Transitioning);
        EXPECT_TRUE(reaches(PlayState::Stopped));
        player.setCurrentPosition(2);
        EXPECT_EQ(player.playState(), PlayState::Stopped);
        expectNothingThere();
        EXPECT_EQ(failures, i + 1);
        player.play();
    }
    start();
}

TEST_P(PlayerContract, Position_IsClamped_NonFiniteValuesAreIgnored_AndAPauseHoldsIt) {
    start();
    player.setCurrentPosition(-1);
    expectPlaysOnFrom(0);
    player.setCurrentPosition(2);
    player.pause();
    EXPECT_TRUE(reaches(PlayState::Paused));
    const double infinity = std::numeric_limits<double>::infinity();
    for (const auto& [written, read] : {std::pair{2.5, 2.5},
                                        {-3, 0},
                                        {1e9, player.duration()},
                                        {1, 1},
                                        {std::nan(""), 1},
                                        {infinity, 1},
                                        {-infinity, 1}}) {
        player.setCurrentPosition(written);
        EXPECT_TRUE(eventually([&] { return player.currentPosition() == read; })) << written;
        bench->run(30);
        EXPECT_EQ(player.currentPosition(), read) << written;
    }
    player.setCurrentPosition(player.duration());
    player.play();
    expectPlaysOnFrom(0);
}

TEST_P(PlayerContract, Stop_GoesToTheStart_EvenWhileLoading_AndASeekThenPauses) {
    for (const int delay : {0, 10, 500}) {
        player.setURL(bench->recording());
        bench->run(delay);
        player.stop();
        player.pause();
        player.setCurrentPosition(0);
        for (int i = 0; i < 100; ++i) {
            bench->run(1);
            ASSERT_EQ(player.playState(), PlayState::Stopped) << delay;
            ASSERT_EQ(player.currentPosition(), 0) << delay;
        }
        player.play();
        expectPlaysOnFrom(0);
    }
    player.stop();
    player.setCurrentPosition(2);
    EXPECT_EQ(player.playState(), PlayState::Paused);
    bench->run(100);
    EXPECT_EQ(player.currentPosition(), 2);
    player.play();
    expectPlaysOnFrom(2);
}

TEST_P(PlayerContract, SeekOrPause_WhileLoading_IsKept) {
    player.setURL(bench->recording());
    player.setCurrentPosition(2);
    EXPECT_EQ(player.currentPosition(), 2);
    expectPlaysOnFrom(2);
    player.setURL(bench->recording());
    player.pause();
    EXPECT_EQ(player.playState(), PlayState::Transitioning);
    player.setCurrentPosition(90);
    EXPECT_TRUE(reaches(PlayState::Paused));
    EXPECT_TRUE(eventually([&] { return player.duration() > 0; }));
    EXPECT_TRUE(eventually([&] { return player.currentPosition() == player.duration(); }));
}

TEST_P(PlayerContract, Rate_IsClamped_KeptForTheNextFile_AndKeepsThePosition) {
    EXPECT_EQ(player.rate(), 1);
    for (const auto& [given, held] :
         {std::pair{0.2, 0.5}, {9, 5}, {1.2000000000000002, 1.2000000000000002}, {3, 3}}) {
        player.setRate(given);
        EXPECT_EQ(player.rate(), held);
    }
    for (int i = 0; i < 2; ++i) {
        start();
        bench->run(500);
        EXPECT_GT(player.currentPosition(), 1);
        EXPECT_LT(player.currentPosition(), 2.5);
    }
    const double before = player.currentPosition();
    player.setRate(0.5);
    EXPECT_NEAR(player.currentPosition(), before, 0.1);
}

} // namespace contracts
