#include "fakes/workbench.h"

#include <gtest/gtest.h>

class SessionTest : public testing::Test {
protected:
    fakes::Workbench bench;
    player::Form1& form = bench.form();
};

TEST_F(SessionTest, Open_AFile_PlaysItAndOffersTheCommands) {
    bench.open("talk.mp3", 180);
    EXPECT_TRUE(form.isPlaying());
    EXPECT_EQ(form.mnuPlay.caption.get(), form.Lingua(8));
    EXPECT_EQ(form.Label4.caption.get(), u"talk.mp3");
    for (const controls::MenuItem* item : {&form.mnuChiudi, &form.mnuPlay, &form.mnuStop, &form.mnuAvanti,
                                           &form.mnuVai, &form.mnuAddBM, &form.mnuBookMark})
        EXPECT_TRUE(item->enabled) << item->name;
    EXPECT_EQ(form.screen.mousePointer, controls::Pointer::Hourglass);
    bench.desktop.loop.advance(400);
    EXPECT_EQ(form.screen.mousePointer, controls::Pointer::Default);
}

TEST_F(SessionTest, Open_WhileAnotherPlays_PausesThatWithItsStepBackFirst) {
    bench.open("a.mp3", 180);
    bench.desktop.loop.advance(10050);
    bench.desktop.player.commands.clear();
    bench.open("b.mp3", 180);
    EXPECT_THAT(bench.desktop.player.commands,
                testing::ElementsAre("seek 8", "pause", "load", "seek 0", "pause", "play"));
    EXPECT_EQ(form.Label4.tag.get(), bench.desktop.folder.text("b.mp3"));
}

TEST_F(SessionTest, DialogCancelled_LeavesThePausedFilePaused) {
    bench.open("a.mp3", 180);
    bench.desktop.loop.advance(5000);
    form.mnuApri.Click();
    ASSERT_EQ(bench.desktop.dialogPort.requests.size(), 1U);
    const auto& request = bench.desktop.dialogPort.requests[0];
    EXPECT_EQ(request.title, form.Lingua(25));
    EXPECT_EQ(std::count(request.filter.begin(), request.filter.end(), u'\0'), 3);
    EXPECT_FALSE(form.isPlaying());
    EXPECT_EQ(bench.desktop.player.playState(), platform::PlayState::Paused);
}

TEST_F(SessionTest, MissingFile_IsToldAndChangesNothing) {
    bench.open("a.mp3", 180);
    bench.opener().ApriMedia(u"/none/b.mp3");
    ASSERT_EQ(bench.desktop.dialogPort.boxes.size(), 1U);
    const auto& box = bench.desktop.dialogPort.boxes[0];
    EXPECT_EQ(box.text, base::TogliAmp(form.Lingua(98)));
    EXPECT_EQ(box.title, base::TogliAmp(form.Lingua(1)));
    EXPECT_EQ(form.Label4.tag.get(), bench.desktop.folder.text("a.mp3"));
}

TEST_F(SessionTest, FileThatIsNoMedia_EndsStoppedAtZero) {
    bench.open("notes.txt", 0);
    bench.desktop.loop.advance(1000);
    EXPECT_FALSE(form.isPlaying());
    EXPECT_EQ(form.Timer4.interval(), 0);
    EXPECT_EQ(form.Label2.caption.get(), u"0:00 / 00:00");
    EXPECT_EQ(form.screen.mousePointer, controls::Pointer::Default);
}

TEST_F(SessionTest, Close_LeadsToTheStateWithoutMedia) {
    bench.open("a.mp3", 180);
    bench.desktop.loop.advance(3000);
    form.mnuChiudi.Click();
    EXPECT_EQ(form.Label2.caption.get(), u"0:00 / 0:00");
    for (const controls::Control* control :
         std::initializer_list<const controls::Control*>{&form.Label4, &form.Shape1, &form.Shape3})
        EXPECT_FALSE(control->visible) << control->name;
    EXPECT_FALSE(form.cmdPlay.enabled);
    EXPECT_FALSE(form.mnuAddBM.enabled);
    EXPECT_EQ(form.Timer1.interval(), 0);
    EXPECT_EQ(form.Label4.tag.get(), bench.desktop.folder.text("a.mp3"));
    EXPECT_THAT(bench.desktop.player.commands, testing::Contains("close"));
}

TEST_F(SessionTest, VanishedFile_OffersTheCommandsAllTheSame) {
    bench.session().vai(bench.desktop.folder.text("gone.mp3"));
    EXPECT_THAT(bench.desktop.player.commands, testing::Not(testing::Contains("load")));
    EXPECT_TRUE(form.cmdPlay.enabled);
    EXPECT_TRUE(form.isPlaying());
}

TEST_F(SessionTest, Title_SizeFollowsItsLength) {
    const std::pair<std::size_t, double> rows[] = {{20, 14}, {21, 11}, {44, 11}, {45, 9}, {200, 9}};
    for (const auto& [length, points] : rows) {
        bench.open(std::string(length - 4, 'n') + ".mp3", 10);
        EXPECT_EQ(form.Label4.fontSize, points) << length;
    }
    // A doubled ampersand counts twice.
    bench.open("0123456789012&45.mp3", 10);
    EXPECT_EQ(form.Label4.caption.get(), u"0123456789012&&45.mp3");
    EXPECT_EQ(form.Label4.fontSize, 11);
    form.mnuTitoloCompleto.Click();
    EXPECT_EQ(form.Label4.caption.get(), base::doubledAmp(bench.desktop.folder.text("0123456789012&45.mp3")));
}
