#include "controls/recent_files.h"
#include "fakes/temporary_folder.h"
#include "testing.h"

struct RecentFilesTest : testing::Test {
    RecentFilesTest() { reset(); }

    void reset() {
        line.visible = false;
        for (std::size_t n = 0; n < items.size(); ++n) {
            items[n]->caption = u"mnuRecent" + base::Text(1, static_cast<char16_t>(u'1' + n));
            items[n]->visible = false;
        }
    }
    std::string shown() const {
        std::string all;
        for (const controls::MenuItem* item : items)
            all += base::toUtf8(item->caption.get()) + (item->visible ? "+ " : " ");
        return all + (line.visible ? "line" : "");
    }

    fakes::TemporaryFolder folder;
    base::TextFiles files{base::CodePage(1252)};
    controls::MenuItem one{"mnuRecent1"};
    controls::MenuItem two{"mnuRecent2"};
    controls::MenuItem three{"mnuRecent3"};
    controls::MenuItem four{"mnuRecent4"};
    controls::MenuItem line{"mnuRiga"};
    const std::array<controls::MenuItem*, 4> items{&one, &two, &three, &four};
    controls::RecentFiles list{items, line, files, folder.text("list.ini")};
};

TEST_F(RecentFilesTest, Remember_MovesEntriesDown_AndShowsThemAsBefore) {
    const std::pair<base::TextView, std::string> rows[] = {
        {u"a", "a+ mnuRecent1 mnuRecent2 mnuRecent3 line"}, // free slots move down like all others;
        {u"b", "b+ a mnuRecent1 mnuRecent2 line"}, // the moved entry becomes visible at the next update
        {u"b", "b+ a+ mnuRecent1 mnuRecent2 line"},
        {u"c", "c+ b+ a mnuRecent1 line"},
        {u"d", "d+ c+ b+ a line"},
        {u"b", "b+ d+ c+ a+ line"},
        {u"e", "e+ b+ d+ c+ line"},
    };
    for (const auto& [path, expected] : rows) {
        list.remember(path);
        EXPECT_EQ(shown(), expected);
    }
    EXPECT_EQ(folder.read("list.ini"), "e\r\nb\r\nd\r\nc\r\n");
}

TEST_F(RecentFilesTest, NameWithALineBreak_RoundTrips) {
    list.remember(u"/talks/a");
    list.remember(u"/talks/one\nname\r.mp3");
    reset();
    list.load(false);
    EXPECT_EQ(one.caption.get(), u"/talks/one\nname\r.mp3");
    EXPECT_EQ(two.caption.get(), u"/talks/a");
}

TEST_F(RecentFilesTest, Load_AcceptsAnyFile) {
    const std::tuple<std::string, bool, std::string> rows[] = {
        {"/a,b.mp3\r\nmnuRecent2\r\nmnuRecent3\r\nmnuRecent4\r\n", false,
         "/a,b.mp3+ mnuRecent2 mnuRecent3 mnuRecent4 line"},
        {"only\r\n", false, "only+ only+ only+ only+ line"},
        {"", false, "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 "},
        {"", true, "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 line"},
        {"\r\n\r\n\r\n\r\n", false, "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 "},
        {"a\nb\nc\nd\ne\n", false, "a+ b+ c+ d+ line"},
    };
    for (const auto& [bytes, markBefore, expected] : rows) {
        reset();
        folder.write("list.ini", bytes);
        list.load(markBefore);
        EXPECT_EQ(shown(), expected) << bytes;
    }
}

TEST_F(RecentFilesTest, UnreadableOrUnwritableFile_HasNoEffect) {
    std::filesystem::create_directory(folder.path() / "list.ini");
    list.load(false);
    list.remember(u"a");
    EXPECT_EQ(one.caption.get(), u"a");
}
