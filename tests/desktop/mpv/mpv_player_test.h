// What the tests of the media player on libmpv's null output share; it runs in real time.
#pragma once

#include "desktop/mpv/listening.h"
#include "fakes/temporary_folder.h"
#include "mpv_player.h"

#include <gtest/gtest.h>

namespace listening {

using desktop::MpvPlayer;
using platform::PlayState;

constexpr double wavLength = 4.0;

// A player, and a folder with a.wav in it.
class MpvPlayerTest : public testing::Test {
protected:
    MpvPlayerTest() { folder_.write("a.wav", noiseWav(wavLength)); }

    static bool reaches(MpvPlayer& player, PlayState state) {
        return waitFor([&] { return player.playState() == state; });
    }
    bool reaches(PlayState state) { return reaches(player_, state); }
    void start(const std::string& name = "a.wav") {
        player_.setURL(folder_.text(name));
        ASSERT_TRUE(reaches(PlayState::Playing));
    }
    // Fails unless sound is running from that place on, in time with the clock; a busy machine may be late.
    void expectPlaysOnFrom(double place) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_GE(player_.currentPosition(), place);
        EXPECT_TRUE(waitFor([&] { return player_.currentPosition() > place + 0.4; }, 900)) << place;
        EXPECT_GT(clock.elapsed(), 300) << place;
        EXPECT_EQ(player_.playState(), PlayState::Playing);
    }
    // Fails unless the player ends as one whose file cannot be played, and then plays another.
    void expectRefused(const base::Text& path) {
        player_.setURL(path);
        EXPECT_EQ(player_.playState(), PlayState::Transitioning);
        EXPECT_TRUE(reaches(PlayState::Stopped));
        EXPECT_EQ(player_.currentPosition(), 0);
        EXPECT_EQ(player_.duration(), 0);
        EXPECT_EQ(player_.currentPositionString() + player_.durationString(), u"");
    }

    fakes::TemporaryFolder folder_;
    MpvPlayer player_{{"null"}};
};

} // namespace listening
