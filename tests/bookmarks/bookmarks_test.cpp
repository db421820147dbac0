#include "fakes/workbench.h"

#include <sys/stat.h>

using testing::ElementsAre;

struct BookmarksTest : fakes::WorkbenchTest {
    BookmarksTest() { speakPlainly(); }

    // A line in the file's format.
    static std::string line(const std::string& time, const std::string& name) {
        return time + "  " + name + std::string(15, ' ') + time + "\r\n";
    }
    // Opens "a.mp3" with these bytes as its bookmark file.
    void openLaid(const std::string& bytes) {
        desktop.folder.write("Bookmarks/a.mp3.bm", bytes);
        openMedia("a.mp3");
    }
    void openMedia(const std::string& name) {
        open(name, length);
        player.setCurrentPosition(0);
        desktop.loop.advance(100);
    }
    // The bookmark file after switching to another recording.
    std::string left() {
        openMedia("other.mp3");
        return desktop.folder.read("Bookmarks/a.mp3.bm");
    }
    // Adds a bookmark at this second; returns the warning shown.
    base::Text add(double second, const base::Text& name) {
        player.setCurrentPosition(second);
        boxes.clear();
        desktop.inForm4 = [&] {
            desktop.form4->Text1.text = name;
            desktop.form4->Command1.Click();
            EXPECT_EQ(desktop.form4->visible, !boxes.empty());
        };
        form().mnuAddBM.Click();
        return boxes.empty() ? base::Text() : boxes[0].text;
    }
    void remove(int row) {
        window.List1.listIndex = row;
        window.Command2.Click();
    }
    double jumpTo(int row) {
        window.List1.listIndex = row;
        player.commands.clear();
        window.List1.DblClick();
        return player.commands.empty() ? -1 : player.currentPosition();
    }
    const std::vector<base::Text>& shown() { return window.List1.items.get(); }

    static constexpr double length = 8000;
    bookmarks::Form3& window = *desktop.form3;
};

TEST_F(BookmarksTest, FilesWithTheLongestNames_AreFoundAgain_AndStayApart) {
    const std::string start(250, 'x');
    for (const std::string& name : {start + "a", start + "aa", start + ".mp3", start + ".wav"}) {
        for (const std::size_t count : {0U, 1U}) {
            openMedia(name);
            EXPECT_EQ(shown().size(), count) << name;
            add(7, u"mark");
        }
        openMedia("other.mp3");
    }
    EXPECT_FALSE(desktop.folder.read("Bookmarks/" + start + "aa.bm").empty()) << "255 bytes are allowed";
}

TEST_F(BookmarksTest, Files_WithAnyContents_AreReadCorrectedAndWritten) {
    const std::string a = line("00:00:09", "Intro");
    const std::string old = "12:30  Old               12:30\r\n";
    const std::string utf8 = "\xEF\xBB\xBF" + line("00:00:01", "\xD0\x96");
    std::string many;
    for (int i = 0; i < 502; ++i)
        many += line("00:00:0" + std::to_string(i % 10), "n");
    const std::tuple<std::string, std::size_t, std::string> rows[] = {
        {a.substr(0, a.size() - 2), 1, a},                    // no line end
        {old + a, 2, "00:" + old + a},                        // the older format
        {many, 501, many.substr(0, many.size() / 502 * 501)}, // one too many
        {a + "\r\n" + a, 1, a + a},                           // the list ends at the empty line
        {"12:30  \r\n" + a, 1, "00:12:30  \r\n" + a},         // too short for a key
        {utf8, 1, utf8},
        {"", 0, ""},
    };
    for (const auto& [laid, count, saved] : rows) {
        openLaid(laid);
        EXPECT_EQ(shown().size(), count) << laid;
        EXPECT_EQ(left(), saved);
        EXPECT_THAT(shown(), ElementsAre());
    }
    openLaid({"\x00\x01\xFF\xFE  \x80\x81\r\r\n\n\x1A  \r\nxx", 18});
    EXPECT_THAT(shown(), ElementsAre());
    left();
    openLaid(many);
    add(7999, u"too many");
    EXPECT_THAT(program->workstation().notices().all().front().parts, ElementsAre(u"02:13:19  too many"));
}

TEST_F(BookmarksTest, UnreadableOrUnwritableFile_IsIgnored) {
    // Reading a socket fails for every user, and the file could be replaced.
    const auto file = desktop.folder.path() / "Bookmarks/a.mp3.bm";
    ASSERT_EQ(::mknod(file.c_str(), S_IFSOCK | 0600, 0), 0);
    for (const bool comesBack : {false, true}) {
        openMedia("a.mp3");
        EXPECT_THAT(shown(), ElementsAre());
        EXPECT_TRUE(window.visible);
        add(5, u"new");
        if (comesBack) {
            std::filesystem::remove(file);
            desktop.folder.write("Bookmarks/a.mp3.bm", line("00:00:09", "old"));
        }
        const std::string saved = left();
        EXPECT_EQ(std::filesystem::is_socket(file), !comesBack);
        EXPECT_EQ(saved, comesBack ? line("00:00:09", "old") + line("00:00:05", "new") : "");
    }

    std::filesystem::remove_all(desktop.folder.path() / "Bookmarks");
    desktop.folder.write("Bookmarks", "a file in the place of the folder");
    openMedia("b.mp3");
    add(5, u"b");
    form().mnuEsci.Click();
    EXPECT_TRUE(desktop.systemPort.ended);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(BookmarksTest, Names_OfAnyKind_RoundTripThroughTheFile) {
    const base::Text names[] = {u"",
                                u"  two blanks",
                                u"a\tb, \"quoted\"",
                                u"\U0001F600 Жук 00:00:01  00:00:02",
                                base::Text(10000, u'x'),
                                u"cut\nhere",
                                u"cut\r\nhere"};
    openMedia("a.mp3");
    std::filesystem::remove_all(desktop.folder.path() / "Bookmarks"); // is created again
    std::vector<base::Text> expected;
    for (const base::Text& name : names) {
        const auto second = 10 + static_cast<int>(expected.size());
        EXPECT_EQ(add(second, name), u"");
        expected.push_back(u"00:00:" + base::numberText(second) + u"  " +
                           name.substr(0, name.find_first_of(u"\r\n")));
    }
    EXPECT_EQ(add(13, names[3]), u"T89") << "the bookmark exists already";
    left();
    openMedia("a.mp3");
    expected[0] = u"00:00:10"; // trailing blanks are lost
    EXPECT_EQ(shown(), expected);
    for (int row = 0; row < std::ssize(expected); ++row)
        EXPECT_EQ(jumpTo(row), 10 + row);
}

TEST_F(BookmarksTest, Deletion_DropsTheLastLine_AndDesynchronisesTheLists) {
    openLaid(line("00:00:30", "C") + line("00:00:10", "A") + line("00:00:20", "B"));
    EXPECT_THAT(shown(), ElementsAre(u"00:00:10  A", u"00:00:20  B", u"00:00:30  C"));
    remove(-1); // no selection
    remove(0);
    EXPECT_THAT(shown(), ElementsAre(u"00:00:20  B", u"00:00:30  C"));
    EXPECT_EQ(jumpTo(0), 10);
    EXPECT_EQ(left(), line("00:00:10", "A") + line("00:00:20", "B"));

    // Deleting all bookmarks leaves the file, so they come back; none of them gets into another recording's
    // file.
    openMedia("a.mp3");
    remove(0);
    remove(0);
    EXPECT_EQ(left(), line("00:00:10", "A") + line("00:00:20", "B"));
    add(5, u"other");
    openMedia("a.mp3");
    EXPECT_EQ(desktop.folder.read("Bookmarks/other.mp3.bm"), line("00:00:05", "other"));

    // A bookmark added after a deletion is kept; duplicates are judged by the contents of the table.
    const std::tuple<int, double, base::TextView, std::string> rows[] = {
        {1, 30, u"C", line("00:00:10", "A") + line("00:00:30", "C")},
        {0, 10, u"A", line("00:00:10", "A")},
        {0, 40, u"D", line("00:00:40", "D")},
    };
    for (const auto& [deleted, second, name, saved] : rows) {
        remove(deleted);
        EXPECT_EQ(add(second, base::Text(name)), u"") << saved;
        EXPECT_EQ(left(), saved);
        openMedia("a.mp3");
    }
}

TEST_F(BookmarksTest, ListKeys_JumpDeleteAndRename_AlsoAfterADeletion) {
    const auto press = [this](int keyCode, int row, const base::Text& typed = {}) {
        window.List1.listIndex = row;
        desktop.inForm4 = [&] {
            EXPECT_EQ(desktop.form4->Label1.caption.get(), form().Lingua(88));
            desktop.form4->Text1.text = typed;
            desktop.form4->Command1.Click();
            desktop.form4->visible = false;
        };
        platform::KeyEvent key{keyCode, 0};
        window.List1.KeyDown(key);
        EXPECT_EQ(key.keyCode, 0);
    };
    openLaid(line("00:00:10", "A") + line("00:00:20", "B") + line("00:00:30", "C"));
    press(13, 1);
    EXPECT_EQ(player.currentPosition(), 20);
    press(113, 2, u"A later");
    EXPECT_EQ(window.List1.listIndex, 2);
    press(46, 0);
    press(113, 0, u"Name");
    EXPECT_THAT(shown(), ElementsAre(u"00:00:20  Name", u"00:00:30  A later"));
    EXPECT_EQ(left(), line("00:00:10", "A") + line("00:00:20", "Name")) << "the deletion drops the last line";

    openMedia("a.mp3");
    add(10, u"B");
    boxes.clear();
    press(113, 0, u"B");
    EXPECT_EQ(boxes.size(), 1U) << "it exists";
    EXPECT_EQ(shown()[0], u"00:00:10  A");

    desktop.text.setText(u"unsaved");
    for (const auto answer : {platform::Answer::Cancel, platform::Answer::Yes}) {
        // The second answer cancels the save dialog.
        desktop.dialogPort.answers = {answer};
        EXPECT_TRUE(form().Unload());
        EXPECT_EQ(shown().size(), 3U) << "a cancelled exit keeps the bookmarks";
    }
}

TEST_F(BookmarksTest, Jumps_IgnoreTheFirstSecond_AndReadOldFormatsByPosition) {
    openLaid(line("00:00:01", "a") + line("00:00:02", "b") + line("01:02:03", "c") +
             "01:40  d               01:40\r\n");
    const double places[] = {-1, 2, 3600 + 40 * 60 + 40, 3723};
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(jumpTo(row), places[row]) << row;

    // Next and previous stay within the list and do not need the window.
    window.Unload();
    player.setCurrentPosition(0);
    for (const int row : {0, 1, 2, 3, 3}) {
        form().mnuBMsuccessivo.Click();
        EXPECT_EQ(window.List1.listIndex, row);
        EXPECT_EQ(player.currentPosition(), std::max(places[row], 0.0));
    }
    for (const int row : {2, 1, 0, 0}) {
        form().mnuBMprecedente.Click();
        EXPECT_EQ(window.List1.listIndex, row);
        EXPECT_EQ(player.currentPosition(), places[std::max(row, 1)]);
    }
    EXPECT_FALSE(window.visible);
}

TEST_F(BookmarksTest, Window_OpensBesideThePlayer_AndKeepsItsRowsWhenClosed) {
    openMedia("a.mp3");
    form().left = 900;
    form().mnuBookMark.Click();
    EXPECT_EQ(window.left, 900 + form().width + 60);
    EXPECT_EQ(form().mnuBookMark.caption.get(), u"T85");
    add(5, u"kept");
    window.Unload();
    EXPECT_EQ(form().mnuBookMark.caption.get(), u"T84");
    EXPECT_THAT((std::vector{window.left.get(), window.top.get(), window.width.get(), window.height.get()}),
                ElementsAre(0, 0, 6000, 3180));
    form().mnuBookMark.Click();
    EXPECT_THAT(shown(), ElementsAre(u"00:00:05  kept"));
    form().mnuChiudi.Click();
    EXPECT_FALSE(window.visible);
    form().mnuEsci.Click();
    EXPECT_EQ(desktop.folder.read("Bookmarks/a.mp3.bm"), line("00:00:05", "kept"));
}

TEST_F(BookmarksTest, AddAtTheEnd_RestartsFromTheBeginning) {
    openMedia("a.mp3");
    form().cmdPlay.Click();
    add(length, u"end");
    EXPECT_TRUE(form().isPlaying());
    EXPECT_THAT(shown(), ElementsAre(u"00:00:00  end"));

    // The selected row stays selected wherever a new one is inserted.
    window.List1.listIndex = 0;
    add(2, u"behind");
    EXPECT_EQ(window.List1.listIndex, 0);
    add(0, u"before");
    EXPECT_EQ(window.List1.listIndex, 1);
    open("unread.mp3", 0);
    form().mnuAddBM.Click();
    EXPECT_TRUE(form().isPlaying()) << "a file that is still loading is not at its end";
}
