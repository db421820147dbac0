#include "fakes/workbench.h"

// Play phases last 5 s, pauses 3 s, steps back 2 s; typing extends a phase.
struct DictationTest : fakes::WorkbenchTest {
    void openTalk() {
        open("talk.mp3", 600);
        loop.advance(player.loadingTime);
        player.commands.clear();
    }
    // Turns smart play on; a play phase begins now.
    void startCycle() {
        if (form.isPlaying())
            form.cmdPlay.Click();
        form.Timer6.setInterval(0);
        if (!form.mnuSmartPlay.checked)
            form.mnuSmartPlay.Click();
        form.cmdPlay.Click();
    }
    // The state of the mode, the player and the timer.
    std::string state() {
        return std::string(form.mnuSmartPlay.checked ? "on " : "off ") +
               (form.isPlaying() ? "playing " : "paused ") +
               (form.Timer5.enabled() ? std::to_string(form.Timer5.interval()) : "idle");
    }

    player::Form1& form = Workbench::form();
    fakes::VirtualLoop& loop = desktop.loop;
};

TEST_F(DictationTest, Mode_TurnedOnByMenuOrButton_ShowsTheirDifferences) {
    form.imgDetta.Click();
    EXPECT_TRUE(player.commands.empty()) << "without a recording, only the mode changes";
    form.imgDetta.Click();
    openTalk();
    for (const auto& [byButton, playing, afterOn] : {std::tuple{false, false, "on paused idle"},
                                                     {false, true, "on playing idle"},
                                                     {true, false, "on playing 5000"},
                                                     {true, true, "on playing idle"}}) {
        if (form.isPlaying() != playing)
            form.cmdPlay.Click();
        boxes.clear();
        byButton ? form.imgDetta.Click() : form.mnuSmartPlay.Click();
        EXPECT_EQ(state(), afterOn);
        EXPECT_EQ(boxes.empty(), byButton);
        form.imgDetta.Click();
    }
}

TEST_F(DictationTest, Cycle_PlaysPausesAndResumes) {
    openTalk();
    startCycle();
    player.setCurrentPosition(0);
    const std::pair<int, std::string> road[] = {{4999, "on playing 5000"}, {1, "on paused 3000"},
                                                {2999, "on paused 3000"},  {1, "on playing 5000"},
                                                {5000, "on paused 3000"},  {3000, "on playing 5000"}};
    for (const auto& [ms, expected] : road) {
        loop.advance(ms);
        EXPECT_EQ(state(), expected) << loop.now();
        EXPECT_EQ(form.mnuPlay.caption.get(), form.cmdPlay.tag.get());
    }
    EXPECT_NEAR(player.currentPosition(), 6, 0.01) << "a cycle advances by the play time minus the step back";
    form.mnuChiudi.Click();
    desktop.form2->setFocus = [] { ADD_FAILURE() << "nothing is playing, so the focus must not move"; };
    form.Timer6.setInterval(1300);
    loop.advance(30000);
    EXPECT_EQ(state(), "on paused idle");
    EXPECT_EQ(form.Timer6.interval(), 0) << "typing ends once nothing is typed";
}

// All transitions of the cycle. A new phase has its full length; if the user is typing, the end of a phase is
// delayed instead.
TEST_F(DictationTest, Cycle_Transitions) {
    const auto tick = [&] { form.Timer5.Tick(); };
    const auto hand = [&] { form.cmdPlay.Click(); };
    const auto typed = [&] {
        form.Timer6.setInterval(1300);
        form.Timer5.Tick();
    };
    const auto typedFreely = [&] {
        form.mnuNoPlayOnWrite.Click();
        typed();
        form.mnuNoPlayOnWrite.Click();
    };
    const auto offByMenu = [&] { form.mnuSmartPlay.Click(); };
    const auto stop = [&] { form.mnuStop.Click(); };
    const auto end = [&] {
        player.setCurrentPosition(599.9);
        loop.advance(400);
    };
    const std::string playing = "on playing 5000";
    const std::string pausing = "on paused 3000";
    // The event, the state before, the state after, and by how many seconds the position moves.
    const std::tuple<const char*, std::string, std::function<void()>, std::string, double> rows[] = {
        {"end of play", playing, tick, pausing, -2},
        {"typing holds a play", playing, typed, "on playing 1300", 0},
        {"typing without the option", playing, typedFreely, pausing, -2},
        {"end of pause", pausing, tick, playing, 0},
        {"typing holds a pause", pausing, typed, "on paused 1300", 0},
        {"hand pauses", playing, hand, "on paused idle", -2},
        {"hand plays", pausing, hand, playing, 0},
        {"off in a play", playing, offByMenu, "off paused idle", -2},
        {"off in a pause", pausing, offByMenu, "off paused idle", 0},
        {"stop in a play", playing, stop, "off paused idle", -100},
        {"stop in a pause", pausing, stop, "off paused idle", -100},
        {"end of the media", playing, end, "off paused idle", -100},
        {"end of the media once more", playing, end, "off paused idle", -100},
    };
    openTalk();
    for (const auto& [what, from, event, to, moved] : rows) {
        SCOPED_TRACE(what);
        startCycle();
        if (from == pausing)
            form.Timer5.Tick();
        player.setCurrentPosition(100);
        ASSERT_EQ(state(), from);
        event();
        EXPECT_EQ(state(), to);
        EXPECT_EQ(player.currentPosition() - 100, moved);
        const bool on = to.starts_with("on");
        EXPECT_EQ(desktop.savedLine(23), on ? "1" : "0");
        EXPECT_EQ(form.imgDetta.picture.get(), form.folder.files(on ? u"detta2.jpg" : u"detta.jpg"));
    }
}

// 40 s are 40000 ms, an overflow of the 16-bit period: the statement that sets it is skipped.
TEST(DictationPeriods, Over16Bits_KeepThePreviousPeriod) {
    // The line of the period, and whether no phase ends because no period was set before.
    for (const auto& [line, endless] : {std::pair{22, false}, {21, true}}) {
        fakes::Workbench bench({{line, "40"}, {23, "1"}});
        bench.open("a.mp3", 600);
        bench.desktop.loop.advance(endless ? 60000 : 5000);
        EXPECT_EQ(bench.form().isPlaying(), endless);
        EXPECT_TRUE(endless || bench.form().Timer5.interval() == 5000);
    }
}
