#include "fakes/workbench.h"

using testing::ElementsAre;

struct TransportTest : fakes::WorkbenchTest {
    void openAt(double seconds) {
        open("talk.mp3", 180);
        desktop.loop.advance(player.loadingTime + static_cast<int>(seconds * 1000));
    }
    // The player commands caused by a click on this button.
    std::vector<std::string> commandsOf(controls::PictureButton& button) {
        player.commands.clear();
        button.Click();
        return player.commands;
    }
};

TEST_F(TransportTest, PauseAndStep_AreNotClamped_AndAStepKeepsTheState) {
    openAt(1);
    EXPECT_THAT(commandsOf(form().cmdPlay), ElementsAre("seek -1", "pause"));
    EXPECT_EQ(form().mnuPlay.caption.get(), form().Lingua(7));
    EXPECT_THAT(commandsOf(form().cmdAvanz), ElementsAre("seek 5"));
    EXPECT_EQ(form().Label2.caption.get(), u"00:05 / 03:00");
    form().cmdPlay.Click();
    EXPECT_THAT(commandsOf(form().cmdIndietro), ElementsAre("seek 0"));
}

TEST_F(TransportTest, StepOfZero_BecomesTwoSecondsPermanently) {
    desktop.laySettingsWith({{4, "0"}});
    ASSERT_TRUE(start());
    openAt(10);
    EXPECT_THAT(commandsOf(form().cmdAvanz), ElementsAre("seek 12"));
    form().mnuTitoloCompleto.Click(); // saves
    EXPECT_EQ(desktop.savedLine(4), "2");
}

TEST_F(TransportTest, Stop_GoesToTheStart_KeepsTheMenuCaption_AndTheNextPlayPausesFirst) {
    openAt(30);
    EXPECT_THAT(commandsOf(form().cmdStop), ElementsAre("stop"));
    EXPECT_FALSE(form().isPlaying());
    EXPECT_EQ(form().mnuPlay.caption.get(), form().Lingua(8));
    EXPECT_EQ(form().Label2.caption.get(), u"0:00 / 03:00");
    EXPECT_EQ(form().Timer1.interval(), 0);
    EXPECT_THAT(commandsOf(form().cmdPlay), ElementsAre("pause", "play"));
}
