// Compares what the media player plays on a sound server with the file.
#include "desktop/mpv/sound_server.h"
#include "mpv_player.h"

#include <gtest/gtest.h>

#include <QFile>

#include <memory>

namespace {

using listening::eventually;
using listening::placeIn;
using listening::runLoop;
using listening::Samples;
using listening::soundsIn;
using platform::PlayState;

class HeardSoundTest : public testing::Test {
protected:
    HeardSoundTest() {
        QFile file(QStringLiteral(MEDIA_FOLDER "/decoded.wav"));
        if (file.open(QIODevice::ReadOnly))
            source_ = listening::samplesOf(file.readAll().mid(44));
    }
    static void SetUpTestSuite() { shared_ = std::make_unique<listening::SoundServer>(); }
    static void TearDownTestSuite() { shared_.reset(); }
    void SetUp() override {
        ASSERT_TRUE(server_.running());
        server_.heard();
        player_ = makePlayer();
        player_->setURL(media);
        ASSERT_TRUE(eventually([&] { return player_->playState() == PlayState::Playing; }));
        runLoop(150);
    }

    static std::unique_ptr<desktop::MpvPlayer> makePlayer() {
        return std::make_unique<desktop::MpvPlayer>(desktop::MpvOptions{"pulse"});
    }
    // Expects the first sound heard to be the one at this position (seconds), exact to a few samples.
    void expectHeardFrom(double place) {
        runLoop(200);
        const Samples heard = server_.heard();
        EXPECT_NEAR(placeIn(source_, heard, soundsIn(heard).front().begin, place), place, 0.003);
    }
    // The position after the last sound heard, in seconds. Expects no silence of `gap` seconds before.
    double lastHeard(double expected, double gap = 1) {
        const Samples heard = server_.heard();
        EXPECT_EQ(soundsIn(heard, gap).size(), 1U);
        return listening::placeBehind(source_, heard, soundsIn(heard).back().end, expected);
    }

    static constexpr base::TextView media = u"" MEDIA_FOLDER "/noise.mp3";
    Samples source_;
    listening::SoundServer& server_ = *shared_;
    std::unique_ptr<desktop::MpvPlayer> player_;

private:
    static inline std::unique_ptr<listening::SoundServer> shared_;
};

TEST_F(HeardSoundTest, Pause_IsSilentAtOnce_AndReportsTheAudiblePosition) {
    for (int round = 0; round < 2; ++round) {
        const double asked = player_->currentPosition();
        player_->pause();
        const double silent = lastHeard(asked);
        EXPECT_NEAR(silent, asked, 0.03);
        EXPECT_NEAR(silent, player_->currentPosition(), 0.03);
        player_->play();
        runLoop(200);
    }
}

TEST_F(HeardSoundTest, StepBackAndPause_ReportsTheExactPosition_AndResumesAtThatSample) {
    // Steps of 0.1 up to normal speed end slightly below it, because of rounding.
    for (double rate = 0.5; rate < 0.95; player_->setRate(rate))
        rate += 0.1;
    player_->setCurrentPosition(8);
    runLoop(300);
    for (const double stepBack : {3.0, 1.234, 0.0}) {
        const double place = player_->currentPosition() - stepBack;
        player_->setCurrentPosition(place);
        player_->pause();
        EXPECT_EQ(player_->currentPosition(), place);
        server_.heard();
        EXPECT_EQ(player_->currentPosition(), place);
        player_->play();
        expectHeardFrom(place);
    }
}

// Everything that the sound can be adjusted to, alone and together.
const platform::SoundAdjustment adjustments[] = {{.clearVoice = true},
                                                 {.channel = platform::Channel::Right},
                                                 {.boost = 200},
                                                 {true, platform::Channel::Left, 150},
                                                 {}};

TEST_F(HeardSoundTest, AdjustedSound_ChangesWithoutAGap_AndResumesAtTheSameSample) {
    server_.heard();
    for (const platform::SoundAdjustment& sound : adjustments) {
        player_->adjustSound(sound);
        runLoop(500);
    }
    const double asked = player_->currentPosition();
    player_->pause();
    EXPECT_NEAR(lastHeard(asked, 0.001), asked, 0.03);
    for (const platform::SoundAdjustment& sound : adjustments) {
        player_->play();
        runLoop(100);
        player_->setCurrentPosition(8.5);
        player_->pause();
        player_->adjustSound(sound);
        server_.heard();
        player_->play();
        expectHeardFrom(8.5);
    }
}

TEST_F(HeardSoundTest, Load_WithASeek_PlaysNothingBeforeThePosition) {
    for (const bool first : {true, false}) {
        player_->setCurrentPosition(15);
        player_->pause();
        if (first)
            player_ = makePlayer();
        server_.heard();
        const double place = first ? 5 : 0;
        player_->setURL(media);
        player_->setCurrentPosition(place);
        QThread::msleep(50); // simulates a busy program, from which the engine hears nothing for a while
        expectHeardFrom(place);
    }
}

TEST_F(HeardSoundTest, EndOfFile_PlaysToTheLastSample_AndPlayOrStopRestartsAtTheFirst) {
    const double length = static_cast<double>(source_.size()) / listening::sampleRate;
    for (const platform::SoundAdjustment& sound : adjustments) {
        player_->play();
        player_->adjustSound(sound);
        runLoop(100);
        server_.heard();
        player_->setCurrentPosition(length - 0.6);
        ASSERT_TRUE(eventually([&] { return player_->playState() == PlayState::Stopped; }));
        const listening::Sound last = soundsIn(server_.heard(), 0.001).back();
        EXPECT_NEAR(static_cast<double>(last.end - last.begin) / listening::sampleRate, 0.6, 0.02);
    }
    for (int round = 0; round < 2; ++round) {
        player_->play();
        expectHeardFrom(0);
        player_->stop();
        server_.heard();
    }
}

TEST_F(HeardSoundTest, ServerThatReturns_IsHeardAtTheNextPlay) {
    for (const bool pausedBefore : {false, true}) {
        if (pausedBefore)
            player_->pause();
        server_.stop();
        runLoop(500);
        server_.start();
        player_->setCurrentPosition(8);
        player_->pause();
        server_.heard();
        player_->play();
        expectHeardFrom(8);
    }
}

TEST_F(HeardSoundTest, SpeedOf4Point5_PlaysWithoutGaps) {
    player_->setRate(4.5);
    runLoop(300);
    server_.heard();
    runLoop(600);
    const Samples heard = server_.heard();
    ASSERT_EQ(soundsIn(heard).size(), 1U);
    EXPECT_GT(soundsIn(heard).front().end - soundsIn(heard).front().begin, heard.size() * 9 / 10);
}

} // namespace
