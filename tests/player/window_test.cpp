#include "fakes/workbench.h"

using namespace std::string_literals;

using PlayerWindowTest = fakes::WorkbenchTest;

TEST_F(PlayerWindowTest, Restore_LeavesAHiddenEditorHidden) {
    form().mnuMostraNascondi.Click();
    for (const auto state : {controls::WindowState::Minimised, controls::WindowState::Normal}) {
        form().windowState = state;
        form().Resize();
        EXPECT_FALSE(desktop.form2->visible);
    }
}

TEST_F(PlayerWindowTest, StayOnTop_JumpsToItsPlaceInBothDirections_AndIsSaved) {
    for (const auto& [on, line] : {std::pair{false, "1"}, {true, "0"}}) {
        form().left = 3000;
        form().top = 4500;
        form().mnuPrimoPiano.Click();
        EXPECT_EQ(form().topmost, on);
        EXPECT_EQ(form().left, 750);
        EXPECT_EQ(form().top, 750);
        EXPECT_EQ(desktop.savedLine(15), line);
    }
}

TEST_F(PlayerWindowTest, Drop_OfWhatIsNoFile_OffersTheCommandsAlone_AndOfNothingNothing) {
    form().Drop({u"\0\0"s});
    form().Drop({});
    EXPECT_FALSE(form().cmdPlay.enabled);
    for (const base::Text& path : {desktop.folder.text("Files"), base::Text(600, u'x')}) {
        form().mnuChiudi.Click();
        player.commands.clear();
        form().Drop({path});
        EXPECT_THAT(player.commands, testing::ElementsAre("pause", "play"));
        EXPECT_TRUE(form().cmdPlay.enabled);
    }
    EXPECT_TRUE(boxes.empty());
}

TEST_F(PlayerWindowTest, Language_FollowsTheLastLangFolderOfTheChosenPath) {
    desktop.layLanguage("Italiano.lng");
    desktop.layLanguage("Polish.lng", 3);
    const std::tuple<base::Text, base::Text, std::string> rows[] = {
        {u"/Lang/x/Lang/Italiano.lng", u"&It0", "Italiano.lng"},
        {u"/elsewhere/English.lng", u"&It0", "Italiano.lng"},
        {u"", u"&It0", "Italiano.lng"},
        {u"/Lang/Polish.lng", u"&Po0", "Polish.lng"}, // a short file leaves the later entries
        {u"/Lang/none.lng", u"&Po0", "none.lng"},
    };
    for (const auto& [chosen, entry0, saved] : rows) {
        desktop.dialogPort.choices = {chosen};
        form().mnuLingua.Click();
        EXPECT_EQ(form().Lingua(0), entry0);
        EXPECT_EQ(form().mnuApri.caption.get(), u"&It3");
        EXPECT_EQ(desktop.savedLine(1), saved);
    }
    EXPECT_EQ(desktop.dialogPort.requests[1].title, u"&I") << "the entry without its last three characters";
}

class VideoPictureTest : public PlayerWindowTest {
protected:
    void show(platform::PictureSize size) {
        player.picture = size;
        player.PictureChanged();
    }

    controls::Window& window = form().VideoWindow;
};

TEST_F(VideoPictureTest, Picture_GoesFromItsBoxToItsWindowAndBack) {
    platform::KeyEvent escapeKey{27};
    const std::function<void()> toWindow = [&] { form().VideoBox.DblClick(); };
    const std::function<void()> doubleClick = [&] { window.DblClick(); };
    const std::function<void()> escape = [&] { window.KeyDown(escapeKey); };
    const std::function<void()> close = [&] { window.Unload(); };
    const std::function<void()> picture = [&] { show({640, 480}); };
    const std::function<void()> soundAlone = [&] { show({}); };
    const std::pair<std::function<void()>, std::string> road[] = {
        {toWindow, ""},          {picture, "box"},      {toWindow, "window"}, {doubleClick, "full"},
        {doubleClick, "window"}, {doubleClick, "full"}, {picture, "full"},    {escape, "window"},
        {escape, "box"},         {toWindow, "window"},  {close, "box"},       {toWindow, "window"},
        {soundAlone, ""}};
    for (const auto& [act, seen] : road) {
        act();
        EXPECT_EQ(form().VideoBox.visible, seen == "box");
        EXPECT_EQ(window.visible, seen == "window" || seen == "full");
        EXPECT_EQ(window.windowState == controls::WindowState::FullScreen, seen == "full");
    }
    EXPECT_FALSE(desktop.systemPort.ended) << "Esc in the picture does not leave the program";
}

TEST_F(VideoPictureTest, Window_KeepsThePictureProportions_BesideThePlayer) {
    for (const auto& [width, height] : {std::pair{640, 480}, {3840, 2160}, {720, 5000}}) {
        show({width, height});
        form().VideoBox.DblClick();
        EXPECT_GE(window.left, form().left + form().width);
        EXPECT_LE(window.left + window.width, form().screen.width);
        EXPECT_LE(window.top + window.height, form().screen.height);
        EXPECT_NEAR(window.width / window.height, double(width) / height, 0.001);
    }
}
