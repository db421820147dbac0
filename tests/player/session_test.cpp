#include "fakes/workbench.h"

using testing::Contains;
using testing::ElementsAre;

class SessionTest : public testing::Test, protected fakes::Workbench {
protected:
    fakes::FakePlayer& player = desktop.player;
    std::vector<fakes::FakeDialogs::Box>& boxes = desktop.dialogPort.boxes;
};

TEST_F(SessionTest, Open_AndClose_OfferTheCommandsAndTakeThemBack) {
    const auto expectOffered = [&](bool offered) {
        for (const controls::MenuItem* item :
             {&form().mnuChiudi, &form().mnuPlay, &form().mnuStop, &form().mnuAvanti, &form().mnuVai,
              &form().mnuAddBM, &form().mnuBookMark})
            EXPECT_EQ(item->enabled, offered) << item->name;
        EXPECT_EQ(form().cmdPlay.enabled, offered);
        EXPECT_EQ(form().Label4.visible, offered);
    };
    open("talk.mp3", 180);
    expectOffered(true);
    EXPECT_TRUE(form().isPlaying());
    EXPECT_EQ(form().mnuPlay.caption.get(), form().Lingua(8));
    EXPECT_EQ(form().screen.mousePointer, controls::Pointer::Hourglass);
    desktop.loop.advance(400);
    EXPECT_EQ(form().screen.mousePointer, controls::Pointer::Default);
    form().mnuChiudi.Click();
    expectOffered(false);
    EXPECT_EQ(form().Label2.caption.get(), u"0:00 / 0:00");
    EXPECT_EQ(form().Timer1.interval(), 0);
    EXPECT_EQ(form().Label4.tag.get(), desktop.folder.text("talk.mp3"));
    session().vai(desktop.folder.text("gone.mp3"));
    expectOffered(true); // all the same
    EXPECT_EQ(std::ranges::count(player.commands, "load"), 1);
}

TEST_F(SessionTest, Open_WhileAnotherPlays_PausesThatWithItsStepBackFirst) {
    open("a.mp3", 180);
    desktop.loop.advance(10050);
    player.commands.clear();
    open("b.mp3", 180);
    EXPECT_THAT(player.commands, ElementsAre("seek 8", "pause", "load", "seek 0", "pause", "play"));
    player.commands.clear();
    form().mnuApri.Click(); // and is cancelled
    EXPECT_EQ(desktop.dialogPort.requests.size(), 1U);
    EXPECT_THAT(player.commands, Contains("pause"));
    opener().ApriMedia(u"/none/b.mp3");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text + boxes[0].title, u"En98En1");
    EXPECT_EQ(form().Label4.tag.get(), desktop.folder.text("b.mp3"));
}

TEST_F(SessionTest, FileThatIsNoMedia_EndsStoppedAtZero) {
    open("notes.txt", 0);
    desktop.loop.advance(1000);
    EXPECT_FALSE(form().isPlaying());
    EXPECT_EQ(form().Label2.caption.get(), u"0:00 / 00:00");
    EXPECT_EQ(form().screen.mousePointer, controls::Pointer::Default);
}

TEST_F(SessionTest, Title_SizeFollowsItsLength) {
    const std::pair<std::size_t, double> rows[] = {{20, 14}, {21, 11}, {44, 11}, {45, 9}};
    for (const auto& [length, points] : rows) {
        open(std::string(length - 4, 'n') + ".mp3", 10);
        EXPECT_EQ(form().Label4.fontSize, points) << length;
    }
    // A doubled ampersand counts twice.
    open("0123456789012&45.mp3", 10);
    EXPECT_EQ(form().Label4.caption.get(), u"0123456789012&&45.mp3");
    EXPECT_EQ(form().Label4.fontSize, 11);
    form().mnuTitoloCompleto.Click();
    EXPECT_EQ(form().Label4.caption.get(), base::doubledAmp(desktop.folder.text("0123456789012&45.mp3")));
}

TEST_F(SessionTest, Bar_GrowsInWholeTwips_AndStaysWithoutALength) {
    open("talk.mp3", 180);
    form().cmdPlay.Click();
    form().Label2.width = 3000;
    for (const auto& [position, width] : {std::pair{90., 1500.}, {180., 3000.}, {0.13, 2.}, {0., 0.}}) {
        player.setCurrentPosition(position);
        form().Timer1.Tick();
        EXPECT_EQ(form().Shape1.width, width) << position;
    }
    int changes = 0;
    form().forEachControl([&](auto& control) { control.observe([&] { ++changes; }); });
    form().Timer1.Tick();
    EXPECT_EQ(changes, 0) << "a tick without a change tells nobody";

    open("stream.ts", 0);
    form().Shape1.width = 777;
    form().cmdPlay.Click();
    player.setCurrentPosition(12);
    form().Timer1.Tick();
    EXPECT_EQ(form().Shape1.width, 777);
}
