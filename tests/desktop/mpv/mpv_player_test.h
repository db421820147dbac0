// Fixture for tests of the media player on libmpv's null output, in real time.
#pragma once

#include "base/files.h"
#include "desktop/eventually.h"
#include "fakes/temporary_folder.h"
#include "mpv_player.h"

#include <gtest/gtest.h>

namespace listening {

using desktop::MpvPlayer;
using fakes::eventually;
using fakes::runLoop;
using platform::PlayState;

constexpr double wavLength = 4.0;

// A player, and a folder that contains a.wav.
class MpvPlayerTest : public testing::Test {
protected:
    MpvPlayerTest() { folder_.write("a.wav", wav_); }

    bool reaches(PlayState state) {
        return eventually([&] { return player_.playState() == state; });
    }
    void start() {
        player_.setURL(folder_.text("a.wav"));
        ASSERT_TRUE(reaches(PlayState::Playing));
    }
    // Expects playback from that position on, in step with the clock; a busy machine may be late.
    void expectPlaysOnFrom(double place) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_GE(player_.currentPosition(), place);
        EXPECT_TRUE(eventually([&] { return player_.currentPosition() > place + 0.4; }, 900)) << place;
        EXPECT_GT(clock.elapsed(), 300) << place;
        EXPECT_EQ(player_.playState(), PlayState::Playing);
    }

    const std::string wav_ = base::readFile(u"" MEDIA_FOLDER "/noise.wav");
    fakes::TemporaryFolder folder_;
    MpvPlayer player_{{"null"}};
};

} // namespace listening
