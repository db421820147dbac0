#include "fakes/workbench.h"

// Phases are 5 s of play and 3 s of pause, with 2 s back; typing holds a phase.
class DictationTest : public testing::Test {
protected:
    void open() {
        bench.open("talk.mp3", 600);
        bench.desktop.loop.advance(bench.desktop.player.loadingTime);
        commands.clear();
    }
    void turnOn() {
        if (!form.mnuSmartPlay.checked)
            form.mnuSmartPlay.Click();
    }
    void type() { form.Timer6.setInterval(1300); }
    // Of the mode, the player and the timer.
    std::string state() {
        return std::string(form.mnuSmartPlay.checked ? "on " : "off ") +
               (form.isPlaying() ? "playing " : "paused ") +
               (form.Timer5.enabled() ? std::to_string(form.Timer5.interval()) : "idle");
    }
    base::Text picture() {
        return base::Text(base::afterLast(form.imgDetta.picture.get(), base::pathSeparator));
    }
    std::string savedMode() {
        const std::string lines = bench.desktop.folder.read("Files/Quillmere.ini");
        return lines.substr(lines.size() - 9, 1);
    }

    fakes::Workbench bench;
    player::Form1& form = bench.form();
    fakes::VirtualLoop& loop = bench.desktop.loop;
    std::vector<std::string>& commands = bench.desktop.player.commands;
};

TEST_F(DictationTest, Mode_SwitchesByItsTwoWays_WithTheirDifferences) {
    struct Row {
        bool byButton;
        bool playing;
        std::string afterOn;
        std::string afterOff;
        std::size_t boxes;
    };
    const Row rows[] = {{false, false, "on paused idle", "off paused idle", 1},
                        {false, true, "on playing idle", "off paused idle", 1},
                        {true, false, "on playing 5000", "off paused idle", 0},
                        {true, true, "on playing idle", "off paused idle", 0}};
    open();
    for (const Row& row : rows) {
        if (form.isPlaying() != row.playing)
            form.cmdPlay.Click();
        bench.desktop.dialogPort.boxes.clear();
        const auto toggle = [&] { row.byButton ? form.imgDetta.Click() : form.mnuSmartPlay.Click(); };
        toggle();
        EXPECT_EQ(state(), row.afterOn);
        EXPECT_EQ(picture(), u"detta2.jpg");
        EXPECT_EQ(savedMode(), "1");
        EXPECT_EQ(bench.desktop.dialogPort.boxes.size(), row.boxes);
        toggle();
        EXPECT_EQ(state(), row.afterOff);
        EXPECT_EQ(picture(), u"detta.jpg");
        EXPECT_EQ(savedMode(), "0");
    }
}

TEST_F(DictationTest, Button_WithoutMedia_ChangesTheModeAlone) {
    form.imgDetta.Click();
    EXPECT_EQ(state().substr(0, 3), "on ");
    EXPECT_TRUE(commands.empty());
}

TEST_F(DictationTest, Cycle_PlaysPausesAndResumes) {
    open();
    form.cmdPlay.Click();
    turnOn();
    bench.desktop.player.setCurrentPosition(0);
    commands.clear();
    form.cmdPlay.Click();
    const std::pair<int, std::string> road[] = {{4999, "on playing 5000"}, {1, "on paused 3000"},
                                                {2999, "on paused 3000"},  {1, "on playing 5000"},
                                                {5000, "on paused 3000"},  {3000, "on playing 5000"}};
    for (const auto& [ms, expected] : road) {
        loop.advance(ms);
        EXPECT_EQ(state(), expected) << loop.now();
    }
    EXPECT_NEAR(bench.desktop.player.currentPosition(), 6, 0.01)
        << "a cycle gains its play less the step back";
    EXPECT_EQ(std::count(commands.begin(), commands.end(), "pause"),
              3); // the first play begins at position 0
}

TEST_F(DictationTest, Hand_EndsTheCycleInAPlay_AndTheWaitInAPause) {
    open();
    form.cmdPlay.Click();
    turnOn();
    form.cmdPlay.Click();
    loop.advance(2000);
    form.cmdPlay.Click();
    EXPECT_EQ(state(), "on paused idle");
    form.cmdPlay.Click();
    loop.advance(5000);
    EXPECT_EQ(state(), "on paused 3000");
    loop.advance(1000);
    form.cmdPlay.Click();
    EXPECT_EQ(state(), "on playing 5000");
    loop.advance(4999);
    EXPECT_EQ(state(), "on playing 5000") << "a fresh phase";
}

TEST_F(DictationTest, Typing_HoldsEitherPhase_AndExtendsItsWatch) {
    open();
    form.cmdPlay.Click();
    turnOn();
    form.cmdPlay.Click();
    for (const std::string phase : {"on playing ", "on paused "}) {
        loop.advance(phase == "on playing " ? 4500 : 500);
        for (int i = 0; i < 10; ++i) {
            type();
            loop.advance(1000);
            EXPECT_EQ(state().substr(0, phase.size()), phase);
        }
        loop.advance(2600); // the watch runs out, and at most one period later the phase ends
        EXPECT_NE(state().substr(0, phase.size()), phase);
    }
    // Without the option the next tick goes on at once.
    form.mnuNoPlayOnWrite.Click();
    type();
    const bool playing = form.isPlaying();
    loop.advance(5000);
    EXPECT_NE(form.isPlaying(), playing);
}

TEST_F(DictationTest, StopAndEnd_SwitchTheModeOff) {
    open();
    turnOn();
    form.mnuStop.Click();
    EXPECT_EQ(state(), "off paused idle");
    EXPECT_EQ(savedMode(), "0");
    form.imgDetta.Click();
    bench.desktop.player.setCurrentPosition(599);
    loop.advance(2000);
    EXPECT_EQ(state(), "off paused idle");
    EXPECT_EQ(picture(), u"detta.jpg");
}

TEST_F(DictationTest, Cycle_GoesOnBehindAnOpenBox) {
    open();
    form.cmdPlay.Click();
    bench.desktop.dialogPort.whileOpen = [&] {
        form.cmdPlay.Click();
        loop.advance(5000);
        EXPECT_EQ(state(), "on paused 3000");
    };
    form.mnuSmartPlay.Click();
}

TEST(DictationPeriods, OfMoreThanSixteenBits_LeaveTheOneBefore) {
    fakes::Workbench bench("5", "1", "40");
    bench.open("a.mp3", 600);
    bench.desktop.loop.advance(5000);
    EXPECT_FALSE(bench.form().isPlaying());
    EXPECT_EQ(bench.form().Timer5.interval(), 5000);
}
