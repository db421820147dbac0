// The media player on libmpv's null output, which runs in real time.
#include "desktop/mpv/listening.h"
#include "fakes/temporary_folder.h"
#include "mpv_player.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace {

using desktop::MpvPlayer;
using listening::runLoop;
using listening::waitFor;
using platform::PlayState;

constexpr double wavLength = 4.0;

class MpvPlayerTest : public testing::Test {
protected:
    MpvPlayerTest() { folder_.write("a.wav", listening::noiseWav(wavLength)); }

    static bool reaches(MpvPlayer& player, PlayState state) {
        return waitFor([&] { return player.playState() == state; });
    }
    bool reaches(PlayState state) { return reaches(player_, state); }
    void start(const std::string& name = "a.wav") {
        player_.setURL(folder_.text(name));
        ASSERT_TRUE(reaches(PlayState::Playing));
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

TEST_F(MpvPlayerTest, Load_StartsByItself_ForEachKindOfFile) {
    struct Row {
        base::Text path;
        double length;
    };
    const base::Text media = u"" MEDIA_FOLDER;
    const Row rows[] = {
        {folder_.text("a.wav"), wavLength}, {media + u"/noise.mp3", 20}, {media + u"/pictures.mp4", 4}};
    for (const Row& row : rows) {
        SCOPED_TRACE(base::toUtf8(row.path));
        MpvPlayer player({"null"});
        EXPECT_EQ(player.playState(), PlayState::Undefined);
        player.setURL(row.path);
        EXPECT_EQ(player.URL(), row.path);
        EXPECT_EQ(player.playState(), PlayState::Transitioning);
        ASSERT_TRUE(reaches(player, PlayState::Playing));
        EXPECT_TRUE(waitFor([&] { return player.currentPosition() > 0.3; }));
        EXPECT_NEAR(player.duration(), row.length, 0.1);
        EXPECT_EQ(player.currentPositionString(), u"00:00");
    }
}

TEST_F(MpvPlayerTest, Position_FollowsTheClock_AndNeverGoesBack) {
    start();
    QElapsedTimer clock;
    clock.start();
    const double from = player_.currentPosition();
    double last = from;
    waitFor([&] {
        const double now = player_.currentPosition();
        EXPECT_GE(now, last);
        EXPECT_NEAR(now - from, static_cast<double>(clock.nsecsElapsed()) / 1e9, 0.02);
        last = now;
        return last > 1.5 || HasFailure();
    });
}

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
    EXPECT_GE(player_.currentPosition(), back);
    runLoop(500);
    EXPECT_NEAR(player_.currentPosition(), back + 0.5, 0.06);
}

TEST_F(MpvPlayerTest, PausedSteps_DoNotDrift) {
    start();
    player_.setCurrentPosition(2);
    player_.pause();
    for (int i = 0; i < 4000; ++i) {
        player_.setCurrentPosition(player_.currentPosition() + (i % 2 == 0 ? 0.25 : -0.25));
        // At first more at once than mpv's queue takes.
        if (i > 2000 && i % 3 == 0)
            QCoreApplication::processEvents();
    }
    EXPECT_EQ(player_.currentPosition(), 2);
    runLoop(100);
    EXPECT_EQ(player_.currentPosition(), 2);
    player_.play();
    runLoop(400);
    EXPECT_NEAR(player_.currentPosition(), 2.4, 0.06);
}

TEST_F(MpvPlayerTest, PauseWithoutWrite_HoldsWhereItFellSilent) {
    start();
    runLoop(300);
    const double asked = player_.currentPosition();
    player_.pause();
    EXPECT_EQ(player_.playState(), PlayState::Paused);
    runLoop(50);
    const double held = player_.currentPosition();
    EXPECT_NEAR(held, asked, 0.03);
    runLoop(100);
    EXPECT_EQ(player_.currentPosition(), held);
    player_.play();
    runLoop(200);
    EXPECT_NEAR(player_.currentPosition(), held + 0.2, 0.06);
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
    EXPECT_EQ(player_.playState(), PlayState::Playing);
    runLoop(400);
    EXPECT_NEAR(player_.currentPosition(), 0.4, 0.06);
}

TEST_F(MpvPlayerTest, PausedAtTheEnd_PlaysFromTheStart_ButAfterAStepBackFromThere) {
    for (const double stepBack : {0.0, 1.0}) {
        start();
        player_.pause();
        player_.setCurrentPosition(wavLength);
        runLoop(100);
        EXPECT_EQ(player_.playState(), PlayState::Paused);
        if (stepBack > 0)
            player_.setCurrentPosition(player_.currentPosition() - stepBack);
        player_.play();
        runLoop(300);
        EXPECT_EQ(player_.playState(), PlayState::Playing);
        EXPECT_NEAR(player_.currentPosition(), (stepBack > 0 ? wavLength - stepBack : 0) + 0.3, 0.06);
    }
}

TEST_F(MpvPlayerTest, PauseShortlyBeforeTheEnd_LeavesTheRestToBePlayed) {
    start();
    player_.setCurrentPosition(wavLength - 0.4);
    runLoop(150);
    player_.pause();
    runLoop(50);
    EXPECT_NEAR(player_.currentPosition(), wavLength - 0.25, 0.06);
    player_.play();
    runLoop(100);
    EXPECT_EQ(player_.playState(), PlayState::Playing);
    EXPECT_NEAR(player_.currentPosition(), wavLength - 0.15, 0.06);
    EXPECT_TRUE(reaches(PlayState::Stopped));
}

TEST_F(MpvPlayerTest, EndWhileTheProgramIsBusy_HoldsNeitherASeekNorAPlayBack) {
    for (const bool seeks : {true, false}) {
        start();
        player_.setCurrentPosition(wavLength - 0.2);
        runLoop(50);
        QThread::msleep(500); // the engine has come to the end and paused, which the program has not heard of
        if (seeks) {
            player_.setCurrentPosition(1);
        } else {
            player_.pause();
            runLoop(50);
            player_.play();
        }
        runLoop(400);
        EXPECT_EQ(player_.playState(), PlayState::Playing);
        EXPECT_NEAR(player_.currentPosition(), seeks ? 1.4 : 0.4, 0.06);
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
        runLoop(300);
        EXPECT_NEAR(player_.currentPosition(), 0.3, 0.06) << delay;
    }
}

TEST_F(MpvPlayerTest, UnplayableFile_EndsInStopped_AndTheNextOnePlays) {
    const std::string wav = listening::noiseWav(1);
    const std::pair<std::string, std::string> rows[] = {
        {"text.txt", "one two three\n"},
        {"text.mp3", std::string(5000, 'x')},
        {"nothing.mp3", ""},
        {"head.wav", wav.substr(0, 30)},
        {"list.m3u", "#EXTM3U\na.wav\n"},
        {"list.mp3", "#EXTM3U\nhttp://127.0.0.1:9/a.mp3\n"},
        {"cuts.mp3", "# mpv EDL v0\na.wav\n"},
        {"tracks.cue", "FILE \"a.wav\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"},
        {"parts.ffconcat", "ffconcat version 1.0\nfile a.wav\n"},
        {"call.sdp",
         "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\nm=audio 5004 RTP/AVP 0\n"},
    };
    for (const auto& [name, bytes] : rows) {
        SCOPED_TRACE(name);
        folder_.write(name, bytes);
        expectRefused(folder_.text(name));
    }
    expectRefused(folder_.text("missing.mp3"));
    expectRefused(base::fromUtf8(folder_.path().string()));
    start();
}

TEST_F(MpvPlayerTest, PlayAfterAFailedLoad_TriesTheFileAgain) {
    expectRefused(folder_.text("late.wav"));
    folder_.write("late.wav", listening::noiseWav(1));
    player_.play();
    EXPECT_TRUE(reaches(PlayState::Playing));
}

TEST_F(MpvPlayerTest, AnyFileName_IsAFileName) {
    std::filesystem::current_path(folder_.path());
    for (const std::string name :
         {"-x.wav", "--volume=0", "a%20b.wav", "%d.wav", "it's \"x\", \\y;.wav", "two\nlines.wav",
          "~~home.wav", "http:x.wav", "file://x.wav", "memory://x.wav", "edl://a.wav", "av://lavfi:sine",
          "\xFF\xFE.wav", "перо 🪶.wav", " .wav"}) {
        SCOPED_TRACE(name);
        folder_.write(name, listening::noiseWav(1));
        for (const base::Text& path : {base::fromUtf8(name), folder_.text(name)}) {
            player_.setURL(path);
            EXPECT_TRUE(waitFor([&] { return player_.currentPosition() > 0.01; }));
            EXPECT_NEAR(player_.duration(), 1, 0.01);
        }
    }
    std::filesystem::current_path("/");
}

TEST_F(MpvPlayerTest, SecondFile_IsNotDisturbedByTheFirst) {
    folder_.write("b.wav", listening::noiseWav(2));
    for (const int delay : {0, 1, 3, 8, 20, 60}) {
        player_.setURL(folder_.text("a.wav"));
        runLoop(delay);
        player_.pause();
        player_.setURL(folder_.text("b.wav"));
        ASSERT_TRUE(waitFor([&] {
            EXPECT_NE(player_.playState(), PlayState::Stopped);
            EXPECT_NE(player_.duration(), wavLength);
            return player_.currentPosition() > 0.05;
        })) << delay;
        EXPECT_EQ(player_.duration(), 2) << delay;
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
        runLoop(500);
        EXPECT_NEAR(player_.currentPosition() - from, 1.5, 0.15);
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
    EXPECT_LT(calls[calls.size() * 95 / 100], 1) << "milliseconds";
    player_.pause();
    player_.setCurrentPosition(0.5);
    player_.play();
    runLoop(300);
    EXPECT_EQ(player_.playState(), PlayState::Playing);
    EXPECT_NEAR(player_.currentPosition(), 0.8, 0.06);
}

TEST_F(MpvPlayerTest, Close_Unloads_AtAnyMoment) {
    for (const int delay : {0, 2, 5, 10, 20, 100}) {
        player_.setURL(folder_.text("a.wav"));
        runLoop(delay);
        player_.setURL(u"");
        player_.close();
        runLoop(20);
        EXPECT_EQ(player_.playState(), PlayState::Undefined);
        EXPECT_EQ(player_.currentPosition() + player_.duration(), 0);
        EXPECT_EQ(player_.durationString(), u"");
    }
    player_.play();
    player_.pause();
    player_.stop();
    player_.setCurrentPosition(1);
    runLoop(50);
    EXPECT_EQ(player_.playState(), PlayState::Undefined);
    start();
}

TEST_F(MpvPlayerTest, FileThatVanishes_LeavesThePlayerUsable) {
    for (int i = 0; i < 10; ++i) {
        folder_.write("gone.wav", listening::noiseWav(1));
        player_.setURL(folder_.text("gone.wav"));
        std::filesystem::remove(folder_.path() / "gone.wav");
        EXPECT_TRUE(waitFor([&] { return player_.playState() != PlayState::Transitioning; }));
    }
    start();
}

TEST_F(MpvPlayerTest, Destruction_IsQuickAtAnyMoment) {
    ASSERT_EQ(::mkfifo((folder_.path() / "pipe.wav").c_str(), 0600), 0);
    for (const char* name : {"a.wav", "pipe.wav"}) {
        for (const int delay : {0, 2, 5, 10, 20, 100}) {
            auto player = std::make_unique<MpvPlayer>(desktop::MpvOptions{"null"});
            player->setURL(folder_.text(name));
            runLoop(delay);
            player->setCurrentPosition(1);
            QElapsedTimer clock;
            clock.start();
            player.reset();
            EXPECT_LT(clock.elapsed(), 200) << name << delay;
            runLoop(1); // whatever was posted must not arrive
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
