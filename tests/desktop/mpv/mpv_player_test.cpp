// The media player on libmpv's null output, in real time.
#include "base/files.h"
#include "contracts/player_contract.h"
#include "desktop/eventually.h"
#include "fakes/temporary_folder.h"
#include "mpv_player.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace contracts {

struct MpvBench : PlayerBench {
    platform::MediaPlayer& player() override { return mpv; }
    base::Text recording() override { return u"" MEDIA_FOLDER "/noise.wav"; }
    base::Text unplayable() override { return u"" MEDIA_FOLDER "/none.wav"; }
    void run(int ms) override { fakes::runLoop(ms); }

    desktop::MpvPlayer mpv{{"null"}};
};

INSTANTIATE_TEST_SUITE_P(Mpv, PlayerContract, testing::Values(make<PlayerBench, MpvBench>));

} // namespace contracts

namespace listening {

using desktop::MpvPlayer;
using fakes::eventually;
using fakes::runLoop;
using platform::PlayState;

constexpr double wavLength = 4.0;

// A player, and a folder that contains a.wav.
struct MpvPlayerTest : testing::Test {
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

// Positions, states and speeds.

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

// Which files the player accepts, and how it loads and leaves them.

TEST_F(MpvPlayerTest, UnplayableFile_EndsInStopped_AndTheNextOnePlays) {
    const std::pair<std::string, std::string> rows[] = {
        {"text.mp3", std::string(5000, 'x')},
        {"nothing.mp3", ""},
        {"head.wav", wav_.substr(0, 30)},
        {"list.m3u", "#EXTM3U\na.wav\n"},
        {"list.mp3", "#EXTM3U\nhttp://127.0.0.1:9/a.mp3\n"},
        {"cuts.mp3", "# mpv EDL v0\na.wav\n"},
        {"tracks.cue", "FILE \"a.wav\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"},
        {"parts.ffconcat", "ffconcat version 1.0\nfile a.wav\n"},
        {"call.sdp",
         "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\nm=audio 5004 RTP/AVP 0\n"},
    };
    std::vector<base::Text> paths = {folder_.text("missing.mp3"), folder_.text("")};
    for (const auto& [name, bytes] : rows) {
        folder_.write(name, bytes);
        paths.push_back(folder_.text(name));
    }
    for (const base::Text& path : paths) {
        SCOPED_TRACE(base::toUtf8(path));
        player_.setURL(path);
        EXPECT_EQ(player_.playState(), PlayState::Transitioning);
        EXPECT_TRUE(reaches(PlayState::Stopped));
    }
    start();
}

TEST_F(MpvPlayerTest, AnyFileName_IsTakenLiterally) {
    std::filesystem::current_path(folder_.path());
    for (const std::string name :
         {"-x.wav", "--volume=0", "a%20b.wav", "%d.wav", R"(it's "x", \y;.wav)", "two\nlines.wav",
          "~~home.wav", "http:x.wav", "file://x.wav", "memory://x.wav", "edl://a.wav", "av://lavfi:sine",
          "\xFF\xFE.wav", "перо 🪶.wav", " .wav"}) {
        SCOPED_TRACE(name);
        folder_.write(name, wav_);
        for (const base::Text& path : {base::fromUtf8(name), folder_.text(name)}) {
            player_.setURL(path);
            EXPECT_TRUE(eventually([&] { return player_.currentPosition() > 0.01; }));
            EXPECT_EQ(player_.duration(), wavLength);
        }
    }
    std::filesystem::current_path("/");
}

TEST_F(MpvPlayerTest, NewFileOrNone_AtAnyMoment_IsUnaffectedByThePreviousFile) {
    for (const int delay : {0, 1, 3, 8, 20, 60}) {
        SCOPED_TRACE(delay);
        player_.setURL(folder_.text("a.wav"));
        runLoop(delay);
        player_.pause();
        player_.setURL(u"" MEDIA_FOLDER "/noise.mp3");
        ASSERT_TRUE(eventually([&] {
            EXPECT_NE(player_.playState(), PlayState::Stopped);
            EXPECT_NE(player_.duration(), wavLength);
            return player_.currentPosition() > 0.05;
        }));
        EXPECT_NEAR(player_.duration(), 20, 0.1);
        player_.setURL(folder_.text("a.wav"));
        runLoop(delay);
        player_.setURL(u"");
        player_.close();
        player_.play();
        player_.setCurrentPosition(1);
        runLoop(20);
        EXPECT_EQ(player_.playState(), PlayState::Undefined);
        EXPECT_EQ(player_.currentPosition() + player_.duration(), 0);
    }
}

TEST_F(MpvPlayerTest, Destruction_AtAnyMoment_IsFast) {
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
            runLoop(1); // posted calls must not arrive
        }
    }
}

} // namespace listening
