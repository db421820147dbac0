#include "fakes/workbench.h"

#include <cmath>

using testing::ElementsAre;

namespace {

// Twenty seconds in which a voice speaks from 1 s, from 6 s and from 11 s, for three seconds each.
std::vector<std::int16_t> threePhrases() {
    std::vector<std::int16_t> samples(20 * 16'000);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / 16'000;
        if (const double within = std::fmod(t + 4, 5); t < 14 && within < 3)
            samples[i] = static_cast<std::int16_t>(6000 * (1.5 + std::sin(20 * t)) * std::sin(3000 * t));
    }
    return samples;
}

struct SoundRoomTest : fakes::WorkbenchTest {
    // Where the recording is, in tenths of a second, after a command.
    int after(const std::function<void()>& command, double from) {
        player.setCurrentPosition(from);
        command();
        return static_cast<int>(std::lround(player.currentPosition() * 10));
    }
    void run(const char* name) { command(name).Click(); }

    fakes::FakeDecoder& listener = desktop.listenerPort;
};

} // namespace

TEST_F(SoundRoomTest, StepsBack_GoToPhrases_OnlyWithTheOption_AndOnceTheMapIsThere) {
    open("talk.mp3", 20);
    desktop.loop.advance(2000);
    const auto back = [this] { form().cmdIndietro.Click(); };
    EXPECT_FALSE(listener.running) << "nothing is read unless it is wanted";
    EXPECT_EQ(after(back, 12), 70);
    run("mnuStepToPhrase");
    EXPECT_THAT(desktop.folder.read("Files/Options.ini"), testing::HasSubstr("StepToPhrase=1"));
    EXPECT_TRUE(listener.running);
    EXPECT_EQ(after(back, 12), 70) << "not yet there";
    listener.hear(threePhrases());
    EXPECT_EQ(after(back, 12), 59);
    EXPECT_EQ(after([this] { form().cmdPlay.Click(); }, 13), 109) << "a pause steps back by 2 s";
    EXPECT_EQ(after([this] { form().cmdAvanz.Click(); }, 5), 100) << "a step forward stays";

    session().mnuChiudi_Click();
    desktop.loop.advance(600);
    opener().ApriMedia(desktop.folder.text("talk.mp3"));
    desktop.loop.advance(600);
    EXPECT_FALSE(listener.running) << "the map was kept";
    EXPECT_EQ(after(back, 12), 59);
    run("mnuStepToPhrase");
    EXPECT_EQ(after(back, 12), 70);
}

TEST_F(SoundRoomTest, CommandsForPhrases_ReadTheRecordingOnce_AndKeepTheState) {
    run("mnuPhraseOn");
    EXPECT_FALSE(listener.running) << "no recording is open";
    open("talk.mp3", 20);
    desktop.loop.advance(1000);
    const auto back = [this] { run("mnuPhraseBack"); };
    const auto on = [this] { run("mnuPhraseOn"); };
    EXPECT_EQ(after(on, 2), 20);
    desktop.loop.advance(500);
    listener.hear(threePhrases());
    EXPECT_EQ(after([] {}, player.currentPosition()), 59) << "jumps when the map is there";
    EXPECT_TRUE(form().isPlaying());
    EXPECT_EQ(after(back, 8), 59);
    EXPECT_EQ(after(back, 6.2), 9);
    EXPECT_EQ(after(back, 0.5), 0);
    EXPECT_EQ(after(on, 15), 150);

    open("other.mp3", 20);
    run("mnuPhraseBack");
    EXPECT_TRUE(listener.running);
    open("third.mp3", 20);
    desktop.loop.advance(600);
    EXPECT_FALSE(listener.running) << "left";
    run("mnuPhraseBack");
    listener.running = false;
    listener.Finished(u"No such file");
    EXPECT_EQ(program->workstation().notices().all().size(), 1U) << "tells that there are none";
}

TEST_F(SoundRoomTest, Window_FollowsThePosition_ZoomsAroundThePointer_AndSeeks) {
    run("mnuSoundWindow");
    sound::SoundWindow& window = *desktop.sound;
    EXPECT_TRUE(window.visible && window.lblState.visible && !window.Wave.visible);
    window.Wave.width = 400 * controls::twipsPerPixel; // at first, 75 pixels a second
    open("talk.mp3", 20);
    desktop.loop.advance(1000);
    EXPECT_TRUE(window.lblState.visible) << "still read";
    listener.hear(threePhrases());
    EXPECT_TRUE(window.Wave.visible && !window.lblState.visible);
    const sound::ShownPart& part = window.Wave.part;
    const auto middle = [&] { return (part.position - part.begin) / part.perPixel; }; // pixels
    player.setCurrentPosition(3);
    desktop.loop.advance(2500);
    EXPECT_NEAR(part.position, player.currentPosition(), 0.02);
    EXPECT_NEAR(middle(), 160, 3) << "the recording moves, the position stays";

    const double there = part.begin + 300 * part.perPixel;
    window.Wave.Wheel(4500, 2, false);
    EXPECT_NEAR(part.begin + 300 * part.perPixel, there, 1e-9);
    window.Wave.Wheel(4500, -2, false);
    desktop.loop.advance(1000);
    EXPECT_GT(middle(), 200) << "the user looks elsewhere";
    desktop.loop.advance(5000);
    EXPECT_NEAR(middle(), 160, 3);

    const double begin = part.begin;
    const auto drag = [&](double to) {
        window.Wave.MouseDown({1, 3000, 900});
        window.Wave.MouseMove({1, to, 900});
        window.Wave.MouseUp({1, to, 900});
    };
    const double before = player.currentPosition();
    drag(3750);
    EXPECT_NEAR(part.begin, begin - 50 * part.perPixel, 1e-9);
    EXPECT_EQ(player.currentPosition(), before);
    drag(3015);
    EXPECT_NEAR(player.currentPosition(), part.begin + 201 * part.perPixel, 1e-9);
    EXPECT_TRUE(window.Wave.accessible.valueText().ends_with(u" of 00:20"));
    EXPECT_TRUE(form().isPlaying());
}

TEST_F(SoundRoomTest, Window_StandsWhereItWas_OnTheScreen) {
    run("mnuSoundWindow");
    EXPECT_EQ(desktop.sound->left, desktop.form2->left + desktop.form2->width + 30);
    EXPECT_EQ(desktop.sound->height, form().height);
    desktop.sound->left = 100'000;
    desktop.sound->top = 3000;
    desktop.sound->width = 6000;
    form().mnuEsci.Click();
    start();
    ASSERT_TRUE(desktop.sound->visible) << "it was open";
    EXPECT_EQ(desktop.sound->left, form().screen.width - 6000);
    EXPECT_EQ(desktop.sound->top, 3000);
    platform::KeyEvent escape{platform::escapeKey};
    desktop.sound->KeyDown(escape);
    EXPECT_FALSE(desktop.sound->visible);
    EXPECT_THAT(desktop.folder.read("Files/Options.ini"), testing::HasSubstr("SoundWindowShown=0"));
}
