#include "fakes/fake_desktop.h"
#include "fakes/full_disk.h"
#include "recorder/wave_in.h"
#include "testing.h"

using testing::IsEmpty;
using namespace std::literals;

struct CaptureTest : testing::Test {
    CaptureTest() { engine.AggancioCattura(true); }

    // Records this many full buffers into "a.wav"; returns its bytes.
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
    // The file's data after this many full buffers. The header is one byte longer than its space; the last
    // block is one byte longer than its sound.
    static std::string sound(std::size_t buffers) {
        std::string bytes(buffers * 8192 + 1, '\0');
        for (std::size_t i = 1; i < buffers * 8192; ++i)
            bytes[i] = static_cast<char>(i / 8192 + i % 8192 % 251);
        return bytes;
    }

    fakes::TemporaryFolder folder;
    fakes::FakeWaveInput device;
    fakes::FakeDialogs dialogs;
    base::TextFiles files{base::CodePage()};
    recorder::RecordingJournal journal{files, folder.text("Recordings.ini")};
    recorder::WaveIn engine{device, dialogs, journal};
};

TEST_F(CaptureTest, File_IsExactToTheByte) {
    using std::string_view;
    // `sizes` holds the RIFF chunk size and the data size, `format` the bytes between them.
    const std::tuple<std::int16_t, std::int16_t, std::int32_t, int, string_view, string_view> rows[] = {
        {2, 16, 44100, 1, "\x25\x20\0\0\x01\x20\0\0"sv, "\1\0\2\0\x44\xAC\0\0\x10\xB1\2\0\4\0\x10\0"sv},
        {1, 8, 8000, 3, "\x25\x60\0\0\x01\x60\0\0"sv, "\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x08\0"sv},
        {1, 16, 48000, 0, "\xF8\xFF\xFF\xFF\xD4\xFF\xFF\xFF"sv,
         "\1\0\1\0\x80\xBB\0\0\0\x77\1\0\2\0\x10\0"sv}};
    for (const auto& [channels, bits, frequency, buffers, sizes, format] : rows) {
        const std::string file = record(channels, bits, frequency, buffers);
        const std::string header = "RIFF" + std::string(sizes.substr(0, 4)) + "WAVEfmt \x10\0\0\0"s +
                                   std::string(format) + "data" + std::string(sizes.substr(4));
        EXPECT_EQ(file.substr(0, 44), header) << frequency;
        EXPECT_TRUE(file.substr(44) == sound(static_cast<std::size_t>(buffers))) << frequency;
    }
    EXPECT_THAT(dialogs.boxes, IsEmpty());
    EXPECT_FALSE(base::fileExists(folder.text("Recordings.ini")))
        << "nothing is recording, so nothing is listed";
}

TEST_F(CaptureTest, Pause_DropsArrivingSound_AndLeavesNoGap) {
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    device.fill(10);
    engine.PausaCattura();
    device.start(); // simulates a buffer that was already on its way
    device.fill(30);
    engine.PausaCattura();
    EXPECT_EQ(device.queued(), 5U);
    EXPECT_EQ(engine.ByteRegistrati(), 45 + 8192);
    device.fill(40);
    engine.PausaCattura();
    stop();
    EXPECT_EQ(folder.read("a.wav").size(), 44U + 2 * 8192 + 1);
    EXPECT_EQ(folder.read("a.wav")[44 + 8192], 40);

    // A recording stopped in a pause does not silence the next one.
    EXPECT_EQ(record(1, 8, 8000, 2).size(), 44U + 2 * 8192 + 1);
}

TEST_F(CaptureTest, SecondHook_IsRefused_AndWithoutAHookNothingIsRecorded) {
    engine.AggancioCattura(true);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].text, u"Double-hooking not permited!");
    engine.AvviaCattura(1, 8, 8000, u"");
    device.fill();
    engine.AggancioCattura(false);
    device.fill();
    EXPECT_EQ(engine.SecondiRegistrati(), 1) << "without a file the counter counts whole buffers";
}

TEST_F(CaptureTest, RefusedDevice_ShowsItsError_AndTheRestContinuesSilently) {
    device.refusal = 4;
    device.words = u" Device unavailable ";
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    int left = 7, right = 7;
    engine.LeggiPicchi(left, right);
    engine.PausaCattura();
    engine.PausaCattura();
    stop();
    EXPECT_EQ(folder.read("a.wav").size(), 45U);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0].text, u"Device unavailable");
    device.refusal = 0;
    EXPECT_EQ(record(2, 16, 44100, 1).size(), 44U + 8192 + 1) << "the device is available again";
}

TEST_F(CaptureTest, SlowDevice_StartsWhenReady_ExceptInAPauseOrAfterAStop) {
    device.slow = true;
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    engine.PausaCattura();
    device.answer();
    EXPECT_FALSE(device.fill()) << "in a pause";
    engine.PausaCattura();
    EXPECT_TRUE(device.fill());
    stop();
    EXPECT_EQ(folder.read("a.wav").size(), 44U + 8192 + 1);
    device.refusal = 4;
    engine.AvviaCattura(2, 16, 44100, folder.text("a.wav"));
    stop();
    device.answer();
    EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(CaptureTest, UnwritableTarget_IsIgnoredSilently) {
    folder.write("full/x", "");
    for (const base::Text& target : {folder.text("gone/a.wav"), folder.text("full")}) {
        engine.AvviaCattura(2, 16, 44100, target);
        device.fill();
        EXPECT_EQ(engine.ByteRegistrati(), 45 + 8192) << "the counter continues";
        EXPECT_NE(engine.TestoErrore(), u"");
        stop();
    }
    EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(CaptureTest, FullDisk_ReportsNothing_AndKeepsWhatWasRecorded) {
    // A disk with room for three buffers and part of the fourth.
    const fakes::FullDisk disk(44 + 3 * 8192 + 1000);
    const std::string file = record(2, 16, 44100, 6);
    EXPECT_EQ(file.substr(40, 3), "\xE8\x63\0"s) << "the length of the existing data";
    EXPECT_TRUE(file.substr(44) == sound(4).substr(0, 3 * 8192 + 1000));
    EXPECT_EQ(engine.ByteRegistrati(), 45 + 6 * 8192) << "the counter continues";
    EXPECT_THAT(dialogs.boxes, IsEmpty());
}

TEST_F(CaptureTest, Peaks_AreMeasuredInOneMillisecondOfThePreviousBuffer) {
    // Channels, bits per sample, and the left and right peak of a buffer whose bytes count up from 101.
    const std::tuple<std::int16_t, std::int16_t, int, int> rows[] = {
        {2, 16, 126 * 256 + 125, 0x10000 - (128 * 256 + 127)}, {1, 8, 128 - 101, 128 - 101}};
    int left = -1, right = -1;
    engine.AvviaCattura(2, 16, 44100, u"");
    device.fill();
    engine.LeggiPicchi(left, right);
    EXPECT_EQ(left, -1) << "there is no buffer before the first";
    stop();
    for (const auto& [channels, bits, leftPeak, rightPeak] : rows) {
        engine.AvviaCattura(channels, bits, 44100, u"");
        device.fill(101);
        device.fill(1);
        engine.LeggiPicchi(left, right);
        EXPECT_EQ(left, leftPeak) << channels << ' ' << bits;
        EXPECT_EQ(right, rightPeak) << channels << ' ' << bits;
        stop();
    }
}
