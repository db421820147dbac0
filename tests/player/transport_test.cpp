#include "fakes/workbench.h"

using testing::ElementsAre;

class TransportTest : public testing::Test {
protected:
    void openAt(double seconds) {
        bench.open("talk.mp3", 180);
        bench.desktop.loop.advance(bench.desktop.player.loadingTime + static_cast<int>(seconds * 1000));
        commands.clear();
    }

    fakes::Workbench bench;
    player::Form1& form = bench.form();
    std::vector<std::string>& commands = bench.desktop.player.commands;
};

TEST_F(TransportTest, Pause_StepsBackBeforeItHolds_WithoutALimit) {
    const std::pair<double, std::string> rows[] = {{30, "seek 28"}, {1, "seek -1"}};
    for (const auto& [at, seek] : rows) {
        openAt(at);
        form.cmdPlay.Click();
        EXPECT_THAT(commands, ElementsAre(seek, "pause"));
        EXPECT_FALSE(form.isPlaying());
        EXPECT_EQ(form.mnuPlay.caption.get(), form.Lingua(7));
        EXPECT_EQ(form.Timer1.interval(), 100) << "the display goes on while paused";
    }
}

TEST_F(TransportTest, Play_AtZero_HoldsFirst) {
    openAt(10);
    form.cmdPlay.Click();
    commands.clear();
    form.cmdPlay.Click();
    EXPECT_THAT(commands, ElementsAre("play"));
    form.mnuStop.Click();
    commands.clear();
    form.cmdPlay.Click();
    EXPECT_THAT(commands, ElementsAre("pause", "play"));
}

TEST_F(TransportTest, Step_MovesBySecSalto_InBothStates) {
    openAt(20);
    form.cmdAvanz.Click();
    form.mnuIndietro.Click();
    EXPECT_THAT(commands, ElementsAre("seek 25", "seek 20"));
    form.cmdPlay.Click();
    commands.clear();
    form.cmdAvanz.Click();
    EXPECT_THAT(commands, ElementsAre("seek 23"));
    EXPECT_FALSE(form.isPlaying());
    EXPECT_EQ(form.Label2.caption.get(), u"00:23 / 03:00");
}

TEST(TransportStep, WithoutALength_TakesTwoSecondsForGood) {
    fakes::Workbench bench;
    bench.desktop.laySettings({"English.lng"});
    app::Program program(bench.desktop);
    ASSERT_TRUE(program.Main(u""));
    program.workstation().opener().ApriMedia(bench.desktop.layMedia("a.mp3", 60));
    bench.desktop.loop.advance(10050);
    bench.desktop.player.commands.clear();
    bench.form().cmdAvanz.Click();
    EXPECT_THAT(bench.desktop.player.commands, ElementsAre("seek 12"));
    bench.form().mnuTitoloCompleto.Click(); // saves
    EXPECT_THAT(bench.desktop.folder.read("Files/Quillmere.ini"), testing::HasSubstr("\r\n2\r\n0\r\n1\r\n"));
}

TEST_F(TransportTest, Stop_GoesToTheStart_AndLeavesTheMenusWord) {
    openAt(30);
    form.mnuStop.Click();
    EXPECT_THAT(commands, ElementsAre("stop"));
    EXPECT_FALSE(form.isPlaying());
    EXPECT_EQ(form.mnuPlay.caption.get(), form.Lingua(8));
    EXPECT_EQ(form.Label2.caption.get(), u"0:00 / 03:00");
    EXPECT_EQ(form.Timer1.interval(), 0);
    bench.desktop.loop.advance(1000);
    EXPECT_EQ(form.Timer4.interval(), 0) << "the watch sees the stop once and ends";
}

TEST_F(TransportTest, EndOfTheMedia_StopsWithinTwoTenthsOfASecond) {
    openAt(179.9);
    bench.desktop.loop.advance(299);
    EXPECT_FALSE(form.isPlaying());
    EXPECT_EQ(form.cmdPlay.picture.get(), form.folder.files(u"play.jpg"));
    form.cmdPlay.Click();
    EXPECT_TRUE(form.isPlaying());
    EXPECT_EQ(form.Timer4.interval(), 200) << "the next play starts the watch again";
}

TEST(TransportCycle, Period_IsSixteenBitsWide) {
    const std::pair<std::string, int> rows[] = {{"5", 5000}, {"32", 32000}, {"33", 0}};
    for (const auto& [tempoPlay, period] : rows) {
        fakes::Workbench bench(tempoPlay, "1");
        bench.open("a.mp3", 60);
        EXPECT_EQ(bench.form().Timer5.interval(), period) << tempoPlay;
        EXPECT_TRUE(bench.form().Timer5.enabled());
        bench.form().cmdPlay.Click();
        EXPECT_EQ(bench.form().Timer5.interval(), 0);
        EXPECT_FALSE(bench.form().Timer5.enabled());
    }
}
