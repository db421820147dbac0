#include "fakes/workbench.h"

using testing::ElementsAre;

using SessionTest = fakes::WorkbenchTest;

TEST_F(SessionTest, OpenAndClose_EnableAndDisableTheCommands) {
    const auto expectOffered = [&](bool offered) {
        for (const controls::MenuItem* item :
             {&form().mnuChiudi, &form().mnuPlay, &form().mnuStop, &form().mnuVai, &form().mnuBookMark})
            EXPECT_EQ(item->enabled, offered) << item->name;
        EXPECT_EQ(form().cmdPlay.enabled, offered);
        EXPECT_EQ(form().Label4.visible, offered);
        EXPECT_EQ(form().Timer1.interval(), offered ? 100 : 0);
    };
    open("talk.mp3", 180);
    expectOffered(true);
    EXPECT_EQ(form().screen.mousePointer, controls::Pointer::Hourglass);
    desktop.loop.advance(400);
    EXPECT_EQ(form().screen.mousePointer, controls::Pointer::Default);
    EXPECT_EQ(form().HoverPlay, 1);
    form().mnuChiudi.Click();
    expectOffered(false);
    EXPECT_EQ(form().HoverPlay, 0);
    EXPECT_EQ(form().Label2.caption.get(), u"0:00 / 0:00");
    session().vai(desktop.folder.text("gone.mp3"));
    expectOffered(true); // although the file does not exist
    EXPECT_EQ(std::ranges::count(player.commands, "load"), 1);
}

TEST_F(SessionTest, Open_WhilePlaying_FirstPausesWithAStepBack) {
    open("a.mp3", 180);
    desktop.loop.advance(10050);
    player.commands.clear();
    open("b.mp3", 180);
    EXPECT_THAT(player.commands, ElementsAre("seek 8", "pause", "load", "seek 0", "pause", "play"));
    form().mnuApri.Click(); // cancelled
    EXPECT_FALSE(form().isPlaying());
    player.commands.clear();
    desktop.form2->top = 0;
    desktop.form2->left = 0;
    form().mnuApri.Click();
    EXPECT_THAT(player.commands, ElementsAre()) << "a paused recording stays paused behind the dialog";
    EXPECT_EQ(desktop.form2->top, 0);
    open("a.mp3", 180);
    EXPECT_EQ(desktop.form2->top, form().top + form().height + 30);
    EXPECT_EQ(desktop.form2->left, form().left);
    open("b.mp3", 180);
    opener().ApriMedia(u"/none/b.mp3");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, u"En98");
    EXPECT_EQ(form().Label4.tag.get(), desktop.folder.text("b.mp3"));
}

TEST_F(SessionTest, TitleSize_DependsOnTheLength_WithAmpersandsCountedTwice) {
    for (const auto& [name, points] : {std::pair{std::string(20, 'n'), 14},
                                       {std::string(19, 'n') + '&', 11},
                                       {std::string(44, 'n'), 11},
                                       {std::string(45, 'n'), 9},
                                       {"0123456789012345678&", 11}}) {
        open(name, 10);
        EXPECT_EQ(form().Label4.fontSize, points) << name;
    }
    form().mnuTitoloCompleto.Click();
    EXPECT_EQ(form().Label4.caption.get(), desktop.folder.text("0123456789012345678&&"));
}

TEST_F(SessionTest, SeekBar_GrowsInWholeTwips) {
    open("talk.mp3", 180);
    desktop.loop.advance(player.loadingTime);
    form().cmdPlay.Click();
    form().Label2.width = 3000;
    for (const auto& [position, width] : {std::pair{90., 1500.}, {180., 3000.}, {0.13, 2.}, {0., 0.}}) {
        player.setCurrentPosition(position);
        form().Timer1.Tick();
        EXPECT_EQ(form().Shape1.width, width) << position;
    }
    EXPECT_EQ(form().Label2.caption.get(), u"0:00 / 03:00");
    int changes = 0;
    form().forEachControl([&](auto& control) { control.observe([&] { ++changes; }); });
    form().Timer1.Tick();
    EXPECT_EQ(changes, 0) << "a tick without a change notifies nobody";
    open("stream.ts", fakes::FakePlayer::unknownLength);
    desktop.loop.advance(player.loadingTime);
    form().cmdPlay.Click();
    player.setCurrentPosition(12);
    form().Timer1.Tick();
    EXPECT_EQ(form().Shape1.width, 0) << "without a length";
}
