#include "desktop/eventually.h"
#include "fakes/full_disk.h"
#include "fakes/temporary_folder.h"
#include "lav_decoder.h"
#include "recorder/wav_header.h"

#include <cmath>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace {

using fakes::eventually;

struct Sound {
    double begin = 0; // s
    double end = 0;
    double length = 0;
};

class LavDecoder : public testing::Test {
protected:
    LavDecoder() {
        decoder.emplace();
        decoder->Finished = [this](const base::Text& failure) { finished = base::toUtf8(failure); };
    }
    // Converts this recording to out.wav and returns the failure.
    std::string convert(const base::Text& recording) {
        finished.reset();
        decoder->start(recording, wav);
        EXPECT_TRUE(eventually([&] { return finished.has_value(); }));
        return finished.value_or("no end");
    }
    static std::string media(const std::string& name) {
        std::ifstream file(MEDIA_FOLDER "/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // Where the sound begins and ends in out.wav.
    Sound heard() const {
        const std::string bytes = folder.read("out.wav");
        EXPECT_EQ(bytes.substr(0, recorder::headerSize),
                  recorder::wavHeader(recorder::pcmFormat(1, 16, 16000), bytes.size()));
        std::vector<std::int16_t> samples((bytes.size() - recorder::headerSize) / 2);
        std::memcpy(samples.data(), bytes.data() + recorder::headerSize, samples.size() * 2);
        Sound sound{.length = static_cast<double>(samples.size()) / 16000};
        for (std::size_t i = 0; i < samples.size(); ++i) {
            if (std::abs(samples[i]) < 700)
                continue;
            sound.end = static_cast<double>(i) / 16000;
            if (sound.begin == 0)
                sound.begin = sound.end;
        }
        return sound;
    }

    fakes::TemporaryFolder folder;
    const base::Text wav = folder.text("out.wav");
    std::optional<desktop::LavDecoder> decoder;
    std::optional<std::string> finished;
};

} // namespace

TEST_F(LavDecoder, Recordings_OfAllKinds_SoundWhereThePlayerHasThem) {
    std::string torn = media("tone.mp3");
    torn.replace(torn.size() * 2 / 5, 250, 250, '\x55');
    std::string damaged = media("film.mp4");
    for (std::size_t i = 40; i < 20'000; i += 4001)
        damaged[i] = static_cast<char>(~damaged[i]);
    const std::string cut = media("tone.wav").substr(0, 2.4 * 8000);
    const struct {
        const char* name;
        std::string bytes;
        double length = 3;
        double later = 0;
    } rows[] = {
        {"http://a: ?#%\xFF\n.mp3", media("tone.mp3")},
        {"torn.mp3", torn},
        {"tone.wav", media("tone.wav")},
        {"three.wav", media("three.wav")},
        {"twenty.w64", media("twenty.w64")},
        {"tone.flac", media("tone.flac")},
        {"cut.wav", cut, 2.4},
        {"tone.ogg", media("tone.ogg")},
        {"without_an_ending", media("tone.aac")},
        {"film.mp4", media("film.mp4")},
        {"damaged.mp4", damaged},
        {"late_sound.ts", media("late_sound.ts"), 3.5, 0.5},
        {"two_sounds.mkv", media("two_sounds.mkv")},
        {"gap.mkv", media("gap.mkv")},
    };
    for (const auto& row : rows) {
        folder.write(row.name, row.bytes);
        EXPECT_EQ(convert(folder.text(row.name)), "") << row.name;
        const Sound sound = heard();
        EXPECT_NEAR(sound.begin - row.later, 1, 0.04) << row.name;
        EXPECT_NEAR(sound.end - row.later, 2, 0.06) << row.name;
        EXPECT_NEAR(sound.length, row.length, 0.1) << row.name;
    }
}

TEST_F(LavDecoder, NoSound_IsAClearFailure_AndLeavesNoFile) {
    const std::string film = media("film.mp4");
    const struct {
        const char* name;
        std::string bytes;
        const char* failure;
    } rows[] = {
        {"silent.mp4", media("silent.mp4"), "The file has no sound"},
        {"empty.mp3", "", "Invalid data"},
        {"text.mp3", "no sound at all", "Invalid data"},
        {"without_its_end.mp4", film.substr(0, film.size() / 2), "Invalid data"},
        {"other.m3u8", "#EXTM3U\n#EXTINF:3,\nfile:" MEDIA_FOLDER "/tone.aac\n", ""},
    };
    for (const auto& row : rows) {
        folder.write(row.name, row.bytes);
        const std::string failure = convert(folder.text(row.name));
        EXPECT_FALSE(failure.empty()) << row.name;
        EXPECT_THAT(failure, testing::HasSubstr(row.failure)) << row.name;
    }
    EXPECT_EQ(convert(folder.text("none.mp3")), "No such file or directory");
    EXPECT_EQ(convert(folder.text("")), "No regular file");
    folder.write("tone.mp3", media("tone.mp3"));
    {
        const fakes::FullDisk disk(50'000);
        EXPECT_THAT(convert(folder.text("tone.mp3")), testing::HasSubstr("File too large"));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "out.wav"));
}

TEST_F(LavDecoder, Cancelled_ReportsNothing_AndLeavesNoFile) {
    folder.write("tone.mp3", media("tone.mp3"));
    for (int ms = 0; ms < 120; ms += 12) {
        decoder->start(folder.text("tone.mp3"), wav);
        QThread::msleep(static_cast<unsigned long>(ms)); // it ends or not; its event waits
        decoder->cancel();
        EXPECT_FALSE(std::filesystem::exists(folder.path() / "out.wav")) << ms;
    }
    decoder->start(folder.text("tone.mp3"), wav);
    decoder.reset();
    fakes::runLoop(50);
    EXPECT_FALSE(finished);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}
