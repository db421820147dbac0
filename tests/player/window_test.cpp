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

TEST_F(PlayerWindowTest, FrameOfAnotherSize_MovesTheWindowsBesideIt) {
    desktop.folder.write("Bookmarks/a.mp3.bm", "00:00:09  A               00:00:09\r\n");
    for (const std::string name : {"a.mp3", "b.mp3"}) {
        open(name, 60);
        form().width = form().width + 90;
        form().height = form().height + 105;
        form().FrameKnown(90, 105);
        EXPECT_EQ(desktop.form2->top, form().top + form().height + 30);
        EXPECT_EQ(desktop.form3->left, form().left + form().width + 60);
        EXPECT_EQ(desktop.form3->height, form().height);
    }
    const double moved = desktop.form2->top + 15;
    desktop.form2->top = moved;
    form().FrameKnown(90, 105);
    EXPECT_EQ(desktop.form2->top, moved) << "the user has moved it";
}

TEST_F(PlayerWindowTest, StayOnTop_MovesThePlayerToItsDefaultPosition_AndIsSaved) {
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

TEST_F(PlayerWindowTest, Drop_OfANonFile_OnlyEnablesTheCommands_AndOfNothingDoesNothing) {
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

TEST_F(PlayerWindowTest, Language_IsTheNameAfterTheLastLangFolder) {
    desktop.layLanguage("Italiano.lng");
    desktop.layLanguage("Polish.lng", 3);
    const std::tuple<base::Text, base::Text, std::string> rows[] = {
        {u"/Lang/x/Lang/Italiano.lng", u"&It0", "Italiano.lng"},
        {u"/elsewhere/English.lng", u"&It0", "Italiano.lng"},
        {u"", u"&It0", "Italiano.lng"},
        {u"/Lang/Polish.lng", u"&Po0", "Polish.lng"}, // a short file keeps the later entries
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

struct VideoPictureTest : PlayerWindowTest {
    // A picture of this many pixels.
    void show(int width, int height) {
        player.picture = {width * 15., height * 15.};
        player.PictureChanged();
    }

    controls::Window& window = form().VideoWindow;
};

TEST_F(VideoPictureTest, Video_MovesFromItsBoxToItsWindowAndBack) {
    platform::KeyEvent escapeKey{27};
    const std::function<void()> toWindow = [&] { form().VideoBox.DblClick(); };
    const std::function<void()> doubleClick = [&] { window.DblClick(); };
    const std::function<void()> escape = [&] { window.KeyDown(escapeKey); };
    const std::function<void()> close = [&] { window.Unload(); };
    const std::function<void()> picture = [&] { show(640, 480); };
    const std::function<void()> soundAlone = [&] { show(0, 0); };
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
    EXPECT_FALSE(desktop.systemPort.ended) << "Esc in the video does not end the program";
}

TEST_F(VideoPictureTest, Window_OpensInTheVideosAspectRatio_WithoutCoveringOthers) {
    for (const bool marks : {false, true}) {
        for (const auto& [width, height] : {std::pair{640, 480}, {3840, 2160}, {720, 1280}}) {
            SCOPED_TRACE(height);
            ASSERT_TRUE(start());
            desktop.form3->visible = marks;
            form().mnuPrimoPiano.Click(); // moves the windows to distinct places
            show(width, height);
            form().VideoBox.DblClick();
            const controls::Window& opened = form().VideoWindow;
            for (const controls::Window* const other :
                 {static_cast<controls::Window*>(&form()), static_cast<controls::Window*>(desktop.form2),
                  static_cast<controls::Window*>(desktop.form3)})
                EXPECT_TRUE(!other->visible || opened.left >= other->left + other->width ||
                            opened.top >= other->top + other->height ||
                            opened.left + opened.width <= other->left ||
                            opened.top + opened.height <= other->top)
                    << other->name;
            EXPECT_LE(opened.left + opened.width, form().screen.width);
            EXPECT_LE(opened.top + opened.height, form().screen.height);
            EXPECT_NEAR(opened.width / opened.height, double(width) / height, 0.001);
        }
    }
}

TEST_F(VideoPictureTest, Window_ReopensAtItsPosition_AndMinimisesWithThePlayer) {
    open("talk.mp4", 60);
    form().Drop({desktop.layMedia("dropped.mp4", 60)});
    show(640, 360);
    form().VideoBox.DblClick();
    EXPECT_EQ(window.caption.get(), u"dropped.mp4");
    EXPECT_EQ(form().mnuRecent1.caption.get(), desktop.folder.text("talk.mp4")) << "a drop is not listed";
    EXPECT_EQ(window.icon.get(), form().icon.get());
    window.left = 1500;
    window.width = 6000;
    window.height = 3000; // as if resized by the user
    window.Unload();
    form().VideoBox.DblClick();
    EXPECT_EQ(window.left, 1500);
    EXPECT_EQ(window.width, 6000);
    EXPECT_EQ(window.height, 3000);
    form().windowState = controls::WindowState::Minimised;
    EXPECT_FALSE(window.visible || form().VideoBox.visible);
    form().windowState = controls::WindowState::Normal;
    EXPECT_TRUE(window.visible);
    window.Unload();
    show(480, 480);
    form().VideoBox.DblClick();
    EXPECT_EQ(window.height, 6000) << "the width stays, the aspect ratio follows the video";
}

TEST_F(VideoPictureTest, FullScreen_KeepsTheFocus_UnlessTheEditorIsActive) {
    open("talk.mp4", 60);
    show(640, 360);
    int focused = 0;
    desktop.form2->setFocus = [&] { ++focused; };
    form().VideoBox.DblClick();
    for (const auto& [full, inEditor, gets] :
         {std::tuple{false, false, true}, {true, false, false}, {true, true, true}}) {
        if (full != (window.windowState == controls::WindowState::FullScreen))
            window.DblClick();
        desktop.form2->active = inEditor;
        focused = 0;
        for (controls::MenuItem* const command : {&form().mnuPlay, &form().mnuAvanti, &form().mnuBookMark})
            command->Click();
        form().mnuBookMark.Click();
        EXPECT_EQ(focused, gets ? 3 : 0) << full << inEditor;
    }
}
