#include "fakes/workbench.h"

using namespace std::string_literals;

class PlayerWindowTest : public testing::Test, protected fakes::Workbench {};

TEST_F(PlayerWindowTest, Minimise_TakesTheEditorAlong_AndRestoreBringsBackWhatWasOpen) {
    const controls::Window& editor = *desktop.form2;
    for (const bool open : {true, false}) {
        if (editor.visible != open)
            form().mnuMostraNascondi.Click();
        form().windowState = controls::WindowState::Minimised;
        form().Resize();
        EXPECT_FALSE(editor.visible);
        form().windowState = controls::WindowState::Normal;
        form().Resize();
        EXPECT_EQ(editor.visible, open);
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

TEST_F(PlayerWindowTest, Drop_PlaysByTheShortRoad_AndOfWhatIsNoFileOffersTheCommandsAlone) {
    open("opened.mp3", 60);
    const base::Text dropped = desktop.layMedia("dropped.mp3", 30);
    form().Drop({dropped + u'\0', u"second.mp3"});
    EXPECT_EQ(desktop.player.URL(), dropped);
    EXPECT_EQ(form().Label4.tag.get(), desktop.folder.text("opened.mp3"));
    for (const base::Text& path : {desktop.folder.text("Files"), base::Text(600, u'x')}) {
        form().mnuChiudi.Click();
        desktop.player.commands.clear();
        form().Drop({path});
        EXPECT_THAT(desktop.player.commands, testing::ElementsAre("pause", "play"));
        EXPECT_TRUE(form().cmdPlay.enabled);
    }
    form().mnuChiudi.Click();
    form().Drop({u"\0\0"s});
    form().Drop({});
    EXPECT_FALSE(form().cmdPlay.enabled);
    EXPECT_TRUE(desktop.dialogPort.boxes.empty());
}

TEST_F(PlayerWindowTest, Language_FollowsTheLastLangFolderOfTheChosenPath) {
    desktop.layLanguage("Italiano.lng");
    desktop.layLanguage("Polish.lng", 3);
    struct Row {
        base::Text chosen;
        base::Text entry0;
        std::string saved;
    };
    const Row rows[] = {
        {u"/Lang/x/Lang/Italiano.lng", u"&It0", "Italiano.lng"},
        {u"/elsewhere/English.lng", u"&It0", "Italiano.lng"},
        {u"", u"&It0", "Italiano.lng"},
        {u"/Lang/Polish.lng", u"&Po0", "Polish.lng"}, // a short file leaves the later entries
        {u"/Lang/none.lng", u"&Po0", "none.lng"},
    };
    for (const Row& row : rows) {
        desktop.dialogPort.choices = {row.chosen};
        form().mnuLingua.Click();
        EXPECT_EQ(form().Lingua(0), row.entry0);
        EXPECT_EQ(form().mnuApri.caption.get(), u"&It3");
        EXPECT_EQ(desktop.savedLine(1), row.saved);
    }
    EXPECT_TRUE(desktop.dialogPort.boxes.empty());
    EXPECT_EQ(desktop.dialogPort.requests[1].title, u"&I") << "the entry without its last three characters";
}

class VideoPictureTest : public PlayerWindowTest {
protected:
    void show(platform::PictureSize size) {
        desktop.player.picture = size;
        desktop.player.PictureChanged();
    }
    // Where the picture is seen now.
    std::string seen() {
        const bool full = form().VideoWindow.windowState == controls::WindowState::FullScreen;
        return form().VideoWindow.visible ? (full ? "full" : "window") : form().VideoBox.visible ? "box" : "";
    }
};

TEST_F(VideoPictureTest, Picture_GoesFromItsBoxToItsWindowAndBack) {
    open("film.mp4", 60);
    platform::KeyEvent escapeKey{27};
    const std::function<void()> toWindow = [&] { form().VideoBox.DblClick(); };
    const std::function<void()> doubleClick = [&] { form().VideoWindow.DblClick(); };
    const std::function<void()> escape = [&] { form().VideoWindow.KeyDown(escapeKey); };
    const std::function<void()> close = [&] { form().VideoWindow.Unload(); };
    const std::function<void()> picture = [&] { show({640, 480}); };
    const std::function<void()> soundAlone = [&] { show({}); };
    const std::pair<std::function<void()>, std::string> road[] = {
        {toWindow, ""},          {picture, "box"},      {toWindow, "window"}, {doubleClick, "full"},
        {doubleClick, "window"}, {doubleClick, "full"}, {picture, "full"},    {escape, "window"},
        {escape, "box"},         {toWindow, "window"},  {close, "box"},       {toWindow, "window"},
        {soundAlone, ""},        {picture, "box"}};
    for (const auto& [act, expected] : road) {
        act();
        EXPECT_EQ(seen(), expected);
    }
    EXPECT_FALSE(desktop.systemPort.ended) << "Esc in the picture does not leave the program";
}

TEST_F(VideoPictureTest, Window_KeepsThePictureProportions_BesideThePlayer) {
    const controls::Window& window = form().VideoWindow;
    for (const platform::PictureSize size : {platform::PictureSize{640, 480}, {3840, 2160}, {720, 5000}}) {
        show(size);
        form().VideoBox.DblClick();
        EXPECT_GE(window.left, form().left + form().width);
        EXPECT_LE(window.left + window.width, form().screen.width);
        EXPECT_LE(window.top + window.height, form().screen.height);
        EXPECT_NEAR(window.width / window.height, double(size.width) / size.height, 0.001);
        form().VideoWindow.Unload();
    }
}
