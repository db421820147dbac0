// Which files the player accepts, and how it loads and leaves them.
#include "mpv_player_test.h"

#include <memory>
#include <sys/stat.h>
#include <vector>

namespace listening {

TEST_F(MpvPlayerTest, Load_StartsByItself_ForEveryFileType) {
    const base::Text media = u"" MEDIA_FOLDER;
    for (const auto& [path, length] : {std::pair{folder_.text("a.wav"), wavLength},
                                       {media + u"/noise.mp3", 20},
                                       {media + u"/pictures.mp4", 4}}) {
        MpvPlayer player({"null"});
        EXPECT_EQ(player.playState(), PlayState::Undefined);
        player.setURL(path);
        EXPECT_EQ(player.playState(), PlayState::Transitioning);
        ASSERT_TRUE(eventually([&] { return player.playState() == PlayState::Playing; })) << length;
        EXPECT_TRUE(eventually([&] { return player.currentPosition() > 0.3; })) << length;
        EXPECT_NEAR(player.duration(), length, 0.1);
    }
}

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
        EXPECT_EQ(player_.currentPosition() + player_.duration(), 0);
        EXPECT_EQ(player_.currentPositionString() + player_.durationString(), u"");
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
        EXPECT_EQ(player_.durationString(), u"");
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
