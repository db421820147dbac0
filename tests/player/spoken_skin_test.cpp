#include "fakes/workbench.h"

using testing::ElementsAre;

struct SpokenSkinTest : fakes::WorkbenchTest {
    SpokenSkinTest() {
        form().announce = [this](const base::Text& text) { heard.push_back(text); };
        open("a.mp3", 65);
        desktop.loop.advance(1000);
    }

    std::vector<base::Text> heard;
};

TEST_F(SpokenSkinTest, Announces_PlayPauseAndSpeed_ButNoPhaseAndNoClock) {
    EXPECT_TRUE(form().cmdPlay.accessible.on);
    EXPECT_EQ(form().Image4.accessible.name.get(), u"") << "the title covers the logo";
    form().mnuPlay.Click();
    desktop.loop.advance(5000);
    form().mnuPlay.Click();
    form().mnuPlay.Click(); // too short to be announced
    form().mnuAumentaVelocità.Click();
    desktop.loop.advance(5000);
    EXPECT_THAT(heard, ElementsAre(u"En7", u"En8", u"1.1 x"));
    EXPECT_FALSE(form().cmdPlay.accessible.on);
    form().imgDetta.Click();
    EXPECT_TRUE(form().imgDetta.accessible.on);
    desktop.loop.advance(30000);
    EXPECT_EQ(heard.size(), 3U);
}

TEST_F(SpokenSkinTest, Sliders_ReadAndSetPositionAndVolume) {
    form().mnuPlay.Click();
    const controls::Accessible& position = form().Label2.accessible;
    position.setValue(24);
    EXPECT_EQ(position.value(), 24);
    EXPECT_EQ(position.most(), 65);
    EXPECT_EQ(position.valueText(), u"00:24 of 01:05");
    EXPECT_FALSE(form().isPlaying());

    const controls::Accessible& volume = form().Image1.accessible;
    for (const auto& [percent, top, text] :
         {std::tuple{0., 1365., u"0%"}, {50., 862.5, u"50%"}, {100., 360., u"100%"}}) {
        volume.setValue(percent);
        EXPECT_EQ(player.volume, percent);
        EXPECT_EQ(form().Image1.top, top);
        EXPECT_EQ(volume.valueText(), text);
    }
}

TEST_F(SpokenSkinTest, F10_LeadsFromGroupToGroup) {
    std::vector<base::Text> groups;
    form().focusControls = [&] { groups.push_back(u"player"); };
    desktop.form2->focusControls = [&] { groups.push_back(u"toolbar"); };
    desktop.form3->List1.setFocus = [&] { groups.push_back(u"bookmarks"); };
    desktop.form2->setFocus = [&] { groups.push_back(u"text"); };
    desktop.form2->visible = true;
    desktop.form3->visible = true;
    platform::KeyEvent f10{121, 0};
    desktop.text.KeyDown(f10);
    desktop.form2->NextGroup();
    form().NextGroup();
    desktop.form3->NextGroup();
    desktop.form3->visible = false;
    form().NextGroup();
    EXPECT_THAT(groups, ElementsAre(u"toolbar", u"player", u"bookmarks", u"text", u"text"));
}
