#include "fakes/workbench.h"

#include <filesystem>

using testing::ElementsAre;

namespace {

// A line as the file has it.
std::string line(const std::string& time, const std::string& name) {
    return time + "  " + name + std::string(15, ' ') + time + "\r\n";
}

} // namespace

class BookmarksTest : public testing::Test {
protected:
    BookmarksTest() { bench.speakPlainly(); }

    void lay(const std::string& bytes) { bench.desktop.folder.write("Bookmarks/a.mp3.bm", bytes); }
    std::string file(const std::string& media = "a.mp3") {
        return bench.desktop.folder.read("Bookmarks/" + media + ".bm");
    }
    void openLaid(const std::string& bytes) {
        lay(bytes);
        open();
    }
    void open(const std::string& media = "a.mp3") {
        bench.open(media, length);
        player.setCurrentPosition(0);
        bench.desktop.loop.advance(100);
    }
    // Adds a bookmark at this second; the texts of the warnings shown.
    std::vector<base::Text> add(double second, const base::Text& name) {
        player.setCurrentPosition(second);
        bench.desktop.dialogPort.boxes.clear();
        bench.desktop.inForm4 = [&] {
            EXPECT_EQ(bench.desktop.form4->caption.get(), u"T93");
            EXPECT_EQ(bench.desktop.form4->Text1.text.get(), u"");
            bench.desktop.form4->Text1.text = name;
            bench.desktop.form4->Command1.Click();
            EXPECT_EQ(bench.desktop.form4->visible, !bench.desktop.dialogPort.boxes.empty());
        };
        form.mnuAddBM.Click();
        std::vector<base::Text> warnings;
        for (const auto& box : bench.desktop.dialogPort.boxes)
            warnings.push_back(box.text);
        return warnings;
    }
    double jumpTo(int row) {
        window.List1.listIndex = row;
        player.commands.clear();
        window.List1.DblClick();
        return player.commands.empty() ? -1 : player.currentPosition();
    }
    const std::vector<base::Text>& shown() { return window.List1.items.get(); }

    static constexpr double length = 8000;
    fakes::Workbench bench;
    fakes::FakePlayer& player = bench.desktop.player;
    player::Form1& form = bench.form();
    bookmarks::Form3& window = *bench.desktop.form3;
};

TEST_F(BookmarksTest, Files_AreReadMendedAndWritten_WhateverTheyHold) {
    const std::string a = line("00:00:09", "Intro");
    const std::string mended = "00:12:30  Old               12:30\r\n";
    std::string many;
    for (int i = 0; i < 502; ++i)
        many += line("00:00:0" + std::to_string(i % 10), "n");
    const std::string rubbish("\x00\x01\xFF\xFE  \x80\x81\r\r\n\n\x1A  \r\nxx", 18);
    struct Row {
        std::string laid;
        std::size_t rows;
        std::string saved;
    };
    const Row rows[] = {
        {a, 1, a},
        {a.substr(0, a.size() - 2), 1, a},                         // no end of line
        {"00:00:09  Intro               00:00:09\n", 1, a},        // ended by another system
        {"12:30  Old               12:30\r\n" + a, 2, mended + a}, // an old line
        {many, 501, many.substr(0, many.size() / 502 * 501)},      // one too many
        {a + "\r\n" + a, 1, a + a},                                // the list ends at the empty line
        {"12:30  \r\n" + a, 1, "00:12:30  \r\n" + a},              // too short for a key
        {"\xEF\xBB\xBF" + line("00:00:01", "\xD0\x96"), 1, "\xEF\xBB\xBF" + line("00:00:01", "\xD0\x96")},
        {"", 0, ""},
        {rubbish, 0, ""},
    };
    for (const Row& row : rows) {
        lay(row.laid);
        open();
        EXPECT_EQ(shown().size(), row.rows) << row.laid;
        EXPECT_TRUE(window.visible);
        EXPECT_EQ(form.mnuBookMark.caption.get(), u"T85");
        if (&row == &rows[std::size(rows) - 1])
            break;
        open("other.mp3");
        EXPECT_EQ(file(), row.saved);
        EXPECT_TRUE(shown().empty());
    }
}

TEST_F(BookmarksTest, FileThatCannotBeReadOrWritten_IsPassedOver) {
    // Reading the memory of the process at 0 fails for everybody.
    std::filesystem::create_symlink("/proc/self/mem", bench.desktop.folder.path() / "Bookmarks/a.mp3.bm");
    open();
    EXPECT_TRUE(shown().empty());
    EXPECT_TRUE(window.visible);

    std::filesystem::remove_all(bench.desktop.folder.path() / "Bookmarks");
    bench.desktop.folder.write("Bookmarks", "a file in the place of the folder");
    open("b.mp3");
    add(5, u"b");
    form.mnuEsci.Click();
    EXPECT_TRUE(bench.desktop.systemPort.ended);
    EXPECT_TRUE(bench.desktop.dialogPort.boxes.empty());
}

TEST_F(BookmarksTest, Names_OfAnyKind_SurviveTheFile) {
    const base::Text names[] = {u"",
                                u"  two blanks",
                                u"a\tb",
                                u"\"quoted\", 'so'",
                                u"\U0001F600 Жук",
                                base::Text(10000, u'x'),
                                u"00:00:01  00:00:02"};
    open();
    std::filesystem::remove_all(bench.desktop.folder.path() / "Bookmarks"); // is made again
    std::vector<base::Text> expected;
    for (std::size_t i = 0; i < std::size(names); ++i) {
        EXPECT_TRUE(add(10.0 + static_cast<double>(i), names[i]).empty());
        expected.push_back(u"00:00:1" + base::Text(1, static_cast<char16_t>(u'0' + i)) + u"  " + names[i]);
    }
    EXPECT_EQ(add(13, names[3]), std::vector<base::Text>{u"T89"});
    open("other.mp3");
    open();
    expected[0] = u"00:00:10"; // blanks at an end do not come back
    EXPECT_EQ(shown(), expected);
    for (int row = 0; row < static_cast<int>(expected.size()); ++row)
        EXPECT_EQ(jumpTo(row), 10 + row);
}

TEST_F(BookmarksTest, Deletion_LosesTheLastLine_AndPutsTheListsOutOfStep) {
    openLaid(line("00:00:30", "C") + line("00:00:10", "A") + line("00:00:20", "B"));
    EXPECT_THAT(shown(), ElementsAre(u"00:00:10  A", u"00:00:20  B", u"00:00:30  C"));
    window.Command2.Click(); // none is chosen
    EXPECT_EQ(shown().size(), 3U);
    window.List1.listIndex = 0;
    window.Command2.Click();
    EXPECT_THAT(shown(), ElementsAre(u"00:00:20  B", u"00:00:30  C"));
    EXPECT_EQ(jumpTo(0), 10);
    open("other.mp3");
    EXPECT_EQ(file(), line("00:00:10", "A") + line("00:00:20", "B"));

    // Deleting all of them leaves the file, so they come back.
    open();
    for (int i = 0; i < 2; ++i) {
        window.List1.listIndex = 0;
        window.Command2.Click();
    }
    open("other.mp3");
    EXPECT_EQ(file(), line("00:00:10", "A") + line("00:00:20", "B"));
}

TEST_F(BookmarksTest, Jumps_BeginBehindTheFirstSecond_AndReadOldEndsByTheirPlaces) {
    openLaid(line("00:00:00", "a") + line("00:00:01", "b") + line("00:00:02", "c") + line("01:02:03", "d") +
             "01:40  e               01:40\r\n");
    const double places[] = {-1, -1, 2, 3600 + 40 * 60 + 40, 3723};
    for (int row = 0; row < 5; ++row)
        EXPECT_EQ(jumpTo(row), places[row]) << row;

    // Next and previous stay within the list, and need no window.
    const std::pair<controls::MenuItem&, int> road[] = {
        {form.mnuBMprecedente, -1}, {form.mnuBMsuccessivo, 0}, {form.mnuBMprecedente, 0},
        {form.mnuBMsuccessivo, 1},  {form.mnuBMsuccessivo, 2}, {form.mnuBMsuccessivo, 3},
        {form.mnuBMsuccessivo, 4},  {form.mnuBMsuccessivo, 4}, {form.mnuBMprecedente, 3}};
    window.Unload();
    for (const auto& [command, row] : road) {
        command.Click();
        EXPECT_EQ(window.List1.listIndex, row);
    }
    EXPECT_FALSE(window.visible);
}

TEST_F(BookmarksTest, Window_StandsBesideThePlayer_AndTellsItsState) {
    open();
    controls::Window& editor = *bench.desktop.form2;
    form.left = 900;
    form.top = 600;
    form.mnuBookMark.Click();
    EXPECT_EQ(window.left, 900 + form.width + 60);
    EXPECT_EQ(window.top, 600);
    EXPECT_EQ(window.height, form.height);
    EXPECT_EQ(window.width, editor.width - form.width - 60);
    EXPECT_EQ(editor.top, 600 + form.height + 30);
    EXPECT_EQ(window.caption.get(), u"T120");
    EXPECT_EQ(window.Command2.toolTip.get(), u" T100 ");
    for (const bool visible : {false, true}) {
        form.mnuBookMark.Click();
        EXPECT_EQ(window.visible, visible);
        EXPECT_EQ(form.mnuBookMark.caption.get(), visible ? u"T85" : u"T84");
    }
    add(5, u"kept");
    window.Unload();
    EXPECT_EQ(form.mnuBookMark.caption.get(), u"T84");
    EXPECT_EQ(window.height, bookmarks::Form3::design.height);
    form.mnuBookMark.Click();
    EXPECT_THAT(shown(), ElementsAre(u"00:00:05  kept"));
    form.mnuChiudi.Click();
    EXPECT_FALSE(window.visible);
    form.mnuEsci.Click();
    EXPECT_EQ(file(), line("00:00:05", "kept"));
}

TEST_F(BookmarksTest, AddAtTheVeryEnd_StartsFromTheBeginning) {
    open();
    form.cmdPlay.Click();
    player.commands.clear();
    add(length, u"end");
    EXPECT_THAT(player.commands, testing::Contains("seek 0"));
    EXPECT_TRUE(form.isPlaying());
    EXPECT_THAT(shown(), ElementsAre(u"00:00:00  end"));
    EXPECT_EQ(bench.desktop.systemPort.beeps, 1);
}
