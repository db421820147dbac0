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
