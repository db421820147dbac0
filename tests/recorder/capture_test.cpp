#include "fakes/fake_desktop.h"
#include "recorder/wave_in.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

using testing::ElementsAre;
using testing::IsEmpty;

class CaptureTest : public testing::Test {
protected:
    // A recording of so many full buffers into "a.wav"; its bytes.
    std::string record(std::int16_t channels, std::int16_t bits, std::int32_t frequency, int buffers) {
        engine.AvviaCattura(channels, bits, frequency, folder.text("a.wav"));
        for (int i = 0; i < buffers; ++i)
            EXPECT_TRUE(device.fill(i));
        stop();
        return folder.read("a.wav");
    }
    void stop() {
        engine.AggancioCattura(false);
        engine.FermaCattura();
        engine.AggancioCattura(true);
    }
    static std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size) {
        std::uint32_t value = 0;
        for (std::size_t i = size; i-- > 0;)
            value = value << 8U | static_cast<std::uint8_t>(bytes.at(at + i));
        return value;
    }

    fakes::TemporaryFolder folder;
    fakes::FakeWaveInput device;
    fakes::FakeDialogs dialogs;
    base::TextFiles files{base::CodePage()};
    recorder::RecordingJournal journal{files, folder.text("Recordings.ini")};
    recorder::WaveIn engine{device, dialogs, journal};
};

TEST_F(CaptureTest, File_OfEveryFormatAndLength_IsWholeToTheByte) {
    engine.AggancioCattura(true);
    for (const int frequency : {48000, 44100, 22050, 11025, 8000}) {
        for (const int bits : {16, 8}) {
            for (const int channels : {2, 1}) {
                for (const std::size_t buffers : {0U, 1U, 7U}) {
                    SCOPED_TRACE(testing::Message()
                                 << frequency << ' ' << bits << ' ' << channels << ' ' << buffers);
                    const std::string file =
                        record(static_cast<std::int16_t>(channels), static_cast<std::int16_t>(bits),
                               frequency, static_cast<int>(buffers));
                    const std::size_t length = buffers == 0 ? 45 : 44 + buffers * 8192 + 1;
                    ASSERT_EQ(file.size(), length);
                    const std::uint32_t data =
                        buffers == 0 ? 0xFFFFFFD4U : static_cast<std::uint32_t>(length - 44);
                    EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8) + file.substr(36, 4), "RIFFWAVEfmt data");
                    const auto block = static_cast<std::uint32_t>(channels * bits / 8);
                    const std::pair<std::size_t, std::uint32_t> words[] = {
                        {4, data + 36},
                        {16, 16},
                        {24, static_cast<std::uint32_t>(frequency)},
                        {28, frequency * block},
                        {40, data}};
                    for (const auto& [at, value] : words)
                        EXPECT_EQ(number(file, at, 4), value) << at;
                    const std::pair<std::size_t, std::uint32_t> halves[] = {
                        {20, 1}, {22, channels}, {32, block}, {34, bits}};
                    for (const auto& [at, value] : halves)
                        EXPECT_EQ(number(file, at, 2), value) << at;
                    EXPECT_EQ(file[44], 0) << "the header is a byte longer than its place";
                    EXPECT_EQ(file.back(), 0);
                    for (std::size_t i = 1; i < buffers * 8192; ++i)
                        ASSERT_EQ(static_cast<std::uint8_t>(file[44 + i]), (i / 8192 + i % 8192 % 251) % 256)
                            << i;
                }
            }
        }
    }
    EXPECT_THAT(dialogs.boxes, IsEmpty());
    EXPECT_FALSE(base::fileExists(folder.text("Recordings.ini"))) << "nothing runs, so nothing is noted";
}

TEST_F(CaptureTest, Device_IsUsedInTheGivenOrder) {
    engine.AggancioCattura(true);
    record(2, 16, 44100, 1);
    EXPECT_THAT(device.calls,
                ElementsAre("open", "prepare", "add 0", "prepare", "add 1", "prepare", "add 2", "prepare",
                            "add 3", "prepare", "add 4", "start", "add 0", "stop", "reset", "unprepare",
                            "unprepare", "unprepare", "unprepare", "unprepare", "close"));
    device.calls.clear();
    stop();
    EXPECT_THAT(device.calls, IsEmpty()) << "nothing runs";
}

TEST_F(CaptureTest, Pause_DropsWhatArrives_AndLeavesNoGap) {
    engine.AggancioCattura(true);
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    device.fill(10);
    engine.PausaCattura();
    EXPECT_FALSE(device.fill(20)) << "the device stands";
    device.start(); // a buffer that was on its way already
    device.fill(30);
    engine.PausaCattura();
    EXPECT_EQ(device.queued(), 5U);
    EXPECT_EQ(engine.ByteRegistrati(), 45 + 8192);
    device.fill(40);
    engine.PausaCattura();
    stop();
    EXPECT_EQ(folder.read("a.wav").size(), 44U + 2 * 8192 + 1);
    EXPECT_EQ(folder.read("a.wav")[44 + 8192], 40);

    // A recording that ended in a pause does not make the next one deaf.
    EXPECT_EQ(record(1, 8, 8000, 2).size(), 44U + 2 * 8192 + 1);
}

TEST_F(CaptureTest, WithoutAFile_OnlyTheCounterRuns) {
    engine.AggancioCattura(true);
    engine.AvviaCattura(1, 8, 8000, u"");
    for (int i = 0; i < 3; ++i)
        device.fill();
    EXPECT_EQ(engine.ByteRegistrati(), 3 * 8192);
    EXPECT_EQ(engine.SecondiRegistrati(), 3);
    stop();
}

TEST_F(CaptureTest, Hook_TwiceIsRefused_AndWithoutItNothingIsHeard) {
    engine.AggancioCattura(true);
    engine.AggancioCattura(true);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].text, u"Double-hooking not permited!");
    EXPECT_EQ(dialogs.boxes[0].title, u"ERROR!");
    EXPECT_EQ(dialogs.boxes[0].style, platform::BoxStyle::Critical);
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    device.fill();
    EXPECT_EQ(engine.ByteRegistrati(), 45 + 8192) << "the first hook is in place";
    engine.AggancioCattura(false);
    device.fill();
    EXPECT_EQ(engine.ByteRegistrati(), 45 + 8192);
}

TEST_F(CaptureTest, RefusedDevice_IsToldInItsWords_AndTheRestGoesOnInSilence) {
    device.refusal = 4;
    device.words = u" Device unavailable ";
    engine.AggancioCattura(true);
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].text, u"Device unavailable");
    EXPECT_EQ(dialogs.boxes[0].title, u"");
    EXPECT_EQ(dialogs.boxes[0].style, platform::BoxStyle::Plain);
    int left = 7, right = 7;
    engine.LeggiPicchi(left, right);
    engine.PausaCattura();
    engine.PausaCattura();
    EXPECT_EQ(engine.ByteRegistrati(), 45);
    stop();
    EXPECT_EQ(folder.read("a.wav").size(), 45U);
    EXPECT_EQ(dialogs.boxes.size(), 1U);
    device.refusal = 0;
    EXPECT_EQ(record(2, 16, 44100, 1).size(), 44U + 8192 + 1) << "the device is back";
}

TEST_F(CaptureTest, Target_ThatTakesNothing_IsSkippedInSilence) {
    folder.write("full/x", "");
    for (const base::Text& target : {folder.text("gone/a.wav"), folder.text("full")}) {
        engine.AggancioCattura(false);
        engine.AggancioCattura(true);
        engine.AvviaCattura(2, 16, 44100, target);
        device.fill();
        device.fill();
        EXPECT_EQ(engine.ByteRegistrati(), 45 + 2 * 8192) << "the counter goes on";
        EXPECT_NE(engine.TestoErrore(), u"");
        stop();
    }
    EXPECT_THAT(dialogs.boxes, IsEmpty());
    EXPECT_TRUE(base::fileExists(folder.text("full/x")));
}

TEST_F(CaptureTest, FullDisk_StaysSilent_AndKeepsWhatWasCapturedWhole) {
    // A disk that holds three buffers and a piece of the fourth.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{44 + 3 * 8192 + 1000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    engine.AggancioCattura(true);
    const std::string file = record(2, 16, 44100, 6);
    ::setrlimit(RLIMIT_FSIZE, &before);
    ASSERT_EQ(file.size(), full.rlim_cur);
    EXPECT_EQ(number(file, 40, 4), file.size() - 44);
    for (std::size_t i = 1; i < file.size() - 44; ++i)
        ASSERT_EQ(static_cast<std::uint8_t>(file[44 + i]), i / 8192 + i % 8192 % 251) << i;
    EXPECT_EQ(engine.ByteRegistrati(), 45 + 6 * 8192) << "the counter goes on";
    EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(CaptureTest, Peaks_AreThoseOfOneMillisecondOfTheBufferBeforeTheLast) {
    struct Row {
        std::int16_t channels, bits;
        int left, right; // of a buffer that begins 101, 102, 103, ...
    };
    const Row rows[] = {{2, 16, 126 * 256 + 125, 0x10000 - (128 * 256 + 127)},
                        {1, 16, 0x10000 - (128 * 256 + 127), 0x10000 - (128 * 256 + 127)},
                        {2, 8, 185 - 128, 186 - 128},
                        {1, 8, 128 - 101, 128 - 101}};
    int left = -1, right = -1;
    engine.AggancioCattura(true);
    engine.AvviaCattura(2, 16, 44100, u"");
    device.fill();
    engine.LeggiPicchi(left, right);
    EXPECT_EQ(left, -1) << "there is no buffer before the first";
    stop();
    for (const Row& row : rows) {
        engine.AggancioCattura(false);
        engine.AggancioCattura(true);
        engine.AvviaCattura(row.channels, row.bits, 44100, u"");
        device.fill(101);
        device.fill(1);
        engine.LeggiPicchi(left, right);
        EXPECT_EQ(left, row.left) << row.channels << ' ' << row.bits;
        EXPECT_EQ(right, row.right) << row.channels << ' ' << row.bits;
        EXPECT_EQ(engine.ValoreMassimo(), row.bits == 16 ? 32767 : 127);
        stop();
    }
}
