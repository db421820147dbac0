#include "fakes/workbench.h"

#include <filesystem>

namespace fs = std::filesystem;
using namespace std::string_literals;

class PlayerWindowTest : public testing::Test {
protected:
    std::string savedLine(int line) {
        std::string bytes = bench.desktop.folder.read("Files/Quillmere.ini");
        for (; line > 1; --line)
            bytes.erase(0, bytes.find("\r\n") + 2);
        return bytes.substr(0, bytes.find("\r\n"));
    }

    fakes::Workbench bench;
    player::Form1& form = bench.form();
    fakes::FakeDialogs& dialogs = bench.desktop.dialogPort;
};

TEST_F(PlayerWindowTest, Minimise_TakesTheEditorAlong_AndRestoreBringsBackWhatWasOpen) {
    controls::Window& editor = *bench.desktop.form2;
    const auto cycle = [&] {
        form.windowState = controls::WindowState::Minimised;
        form.Resize();
        EXPECT_FALSE(editor.visible);
        form.windowState = controls::WindowState::Normal;
        form.Resize();
        return editor.visible.get();
    };
    EXPECT_TRUE(cycle());
    editor.visible = false;
    form.mnuMostraNascondi.caption = form.Lingua(86);
    EXPECT_FALSE(cycle());
}

TEST_F(PlayerWindowTest, StayOnTop_JumpsToItsPlaceInBothDirections_AndIsSaved) {
    for (const auto& [on, line] : {std::pair{false, "1"}, std::pair{true, "0"}}) {
        form.left = 3000;
        form.top = 4500;
        form.mnuPrimoPiano.Click();
        EXPECT_EQ(form.topmost, on);
        EXPECT_EQ(form.mnuPrimoPiano.checked, on);
        EXPECT_EQ(form.left, 750);
        EXPECT_EQ(form.top, 750);
        EXPECT_EQ(savedLine(15), line);
    }
}

TEST_F(PlayerWindowTest, Drop_PlaysTheFirstFileByTheShortRoad) {
    bench.open("opened.mp3", 60);
    const std::string recent = bench.desktop.folder.read("Files/LastFiles.ini");
    const base::Text first = bench.desktop.layMedia("dropped.mp3", 30);
    bench.desktop.layMedia("second.mp3", 30);
    form.Drop({first + u'\0', bench.desktop.folder.text("second.mp3")});
    EXPECT_EQ(bench.desktop.player.URL(), first);
    EXPECT_TRUE(form.isPlaying());
    EXPECT_EQ(form.Label4.tag.get(), bench.desktop.folder.text("opened.mp3"));
    EXPECT_EQ(bench.desktop.folder.read("Files/LastFiles.ini"), recent);
}

TEST_F(PlayerWindowTest, Drop_OfWhatIsNoFile_OffersTheCommandsAndLoadsNothing) {
    fs::create_directory(bench.desktop.folder.path() / "folder");
    for (const base::Text& path :
         {bench.desktop.folder.text("folder"), base::Text(600, u'x'), base::Text(u"https://a.b/c")}) {
        form.mnuChiudi.Click();
        bench.desktop.player.commands.clear();
        form.Drop({path});
        EXPECT_THAT(bench.desktop.player.commands, testing::ElementsAre("pause", "play"));
        EXPECT_TRUE(form.cmdPlay.enabled);
    }
    form.mnuChiudi.Click();
    form.Drop({u"\0\0"s});
    form.Drop({});
    EXPECT_FALSE(form.cmdPlay.enabled);
    EXPECT_TRUE(dialogs.boxes.empty());
    form.mnuEsci.Click();
    EXPECT_FALSE(form.acceptsDrops);
}

TEST_F(PlayerWindowTest, Language_FollowsTheLastLangFolderOfTheChosenPath) {
    bench.desktop.layLanguage("Italiano.lng", 136);
    bench.desktop.layLanguage("Polish.lng", 3);
    bench.desktop.folder.write("Files/Lang/Odd.lng", "\xEF\xBB\xBF"
                                                     "000\xD0\xAF");
    struct Row {
        base::Text chosen;
        base::Text entry0;
        base::Text menu;
        std::string saved;
    };
    const Row rows[] = {
        {u"/Lang/x/Lang/Italiano.lng", u"&It0", u"&It3", "Italiano.lng"},
        {u"/elsewhere/English.lng", u"&It0", u"&It3", "Italiano.lng"},
        {u"", u"&It0", u"&It3", "Italiano.lng"},
        {u"/Lang/Polish.lng", u"&Po0", u"&It3", "Polish.lng"}, // a short file leaves the later entries
        {u"/Lang/none.lng", u"&Po0", u"&It3", "none.lng"},
        {u"/Lang/Odd.lng", u"Я", u"&It3", "Odd.lng"},
    };
    for (const Row& row : rows) {
        dialogs.choices = {row.chosen};
        form.mnuLingua.Click();
        EXPECT_EQ(form.Lingua(0), row.entry0);
        EXPECT_EQ(form.mnuApri.caption.get(), row.menu);
        EXPECT_EQ(savedLine(1), row.saved);
    }
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(dialogs.requests[1].title, u"&I") << "the entry without its last three characters";
    EXPECT_EQ(dialogs.requests[1].filter, u"&I\0*.lng"s);
}

class VideoPictureTest : public PlayerWindowTest {
protected:
    void show(platform::PictureSize size) {
        bench.desktop.player.picture = size;
        bench.desktop.player.PictureChanged();
    }
    // Where the picture is seen now.
    std::string seen() {
        const bool full = form.VideoWindow.windowState == controls::WindowState::FullScreen;
        return form.VideoWindow.visible ? (full ? "full" : "window") : form.VideoBox.visible ? "box" : "";
    }
};

TEST_F(VideoPictureTest, Picture_GoesFromItsBoxToItsWindowAndBack) {
    bench.open("film.mp4", 60);
    EXPECT_EQ(seen(), "");
    form.VideoBox.DblClick();
    EXPECT_EQ(seen(), "") << "sound alone has nothing to show";
    show({1280, 720});
    const std::function<void()> toWindow = [&] { form.VideoBox.DblClick(); };
    const std::function<void()> doubleClick = [&] { form.VideoWindow.DblClick(); };
    const std::function<void()> escape = [&] {
        platform::KeyEvent key{27};
        form.VideoWindow.KeyDown(key);
    };
    const std::function<void()> close = [&] { EXPECT_TRUE(form.VideoWindow.Unload()); };
    const std::function<void()> stay = [&] { show({640, 480}); };
    const std::function<void()> soundAlone = [&] { show({}); };
    const std::pair<std::function<void()>, std::string> road[] = {
        {stay, "box"},         {toWindow, "window"}, {doubleClick, "full"}, {doubleClick, "window"},
        {doubleClick, "full"}, {stay, "full"},       {escape, "window"},    {escape, "box"},
        {toWindow, "window"},  {close, "box"},       {toWindow, "window"},  {soundAlone, ""},
        {stay, "box"}};
    for (const auto& [act, expected] : road) {
        act();
        EXPECT_EQ(seen(), expected);
    }
    EXPECT_FALSE(bench.desktop.systemPort.ended) << "Esc in the picture does not leave the program";
}

TEST_F(VideoPictureTest, Window_KeepsThePictureProportions_BesideThePlayer) {
    for (const platform::PictureSize size : {platform::PictureSize{640, 480}, {3840, 2160}, {720, 5000}}) {
        show(size);
        form.VideoBox.DblClick();
        EXPECT_GE(form.VideoWindow.left, form.left + form.width);
        EXPECT_LE(form.VideoWindow.left + form.VideoWindow.width, form.screen.width);
        EXPECT_LE(form.VideoWindow.top + form.VideoWindow.height, form.screen.height);
        EXPECT_NEAR(form.VideoWindow.width / form.VideoWindow.height, double(size.width) / size.height,
                    0.001);
        form.VideoWindow.Unload();
    }
}
