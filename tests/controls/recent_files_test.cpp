#include "controls/recent_files.h"
#include "fakes/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

class RecentFilesTest : public testing::Test {
protected:
    std::string shown() const {
        std::string all;
        for (const controls::MenuItem* item : {&one, &two, &three, &four})
            all += base::toUtf8(item->caption.get()) + (item->visible ? "+ " : " ");
        return all + (line.visible ? "line" : "");
    }
    void open(const std::string& names) {
        for (const char name : names)
            list.remember(base::Text(1, static_cast<char16_t>(name)));
    }

    fakes::TemporaryFolder folder;
    base::TextFiles files{base::CodePage(1252)};
    controls::MenuItem one{"mnuRecent1", u"mnuRecent1"};
    controls::MenuItem two{"mnuRecent2", u"mnuRecent2"};
    controls::MenuItem three{"mnuRecent3", u"mnuRecent3"};
    controls::MenuItem four{"mnuRecent4", u"mnuRecent4"};
    controls::MenuItem line{"mnuRiga"};
    controls::RecentFiles list{{&one, &two, &three, &four}, line, files, folder.text("list.ini")};

    void SetUp() override {
        for (controls::MenuItem* item : {&one, &two, &three, &four, &line})
            item->visible = false;
    }
};

TEST_F(RecentFilesTest, Updates_MoveDownAndShowWhatTheyAlwaysShowed) {
    const std::pair<std::string, std::string> rows[] = {
        {"a", "a+ mnuRecent1 mnuRecent2 mnuRecent3 line"}, // free slots move down like all,
        {"b", "b+ a mnuRecent1 mnuRecent2 line"},          // the moved entry shows at the next update
        {"b", "b+ a+ mnuRecent1 mnuRecent2 line"},
        {"c", "c+ b+ a mnuRecent1 line"},
        {"d", "d+ c+ b+ a line"},
        {"b", "b+ d+ c+ a+ line"},
        {"d", "d+ b+ c+ a+ line"},
        {"a", "a+ d+ b+ c+ line"},
        {"e", "e+ a+ d+ b+ line"},
    };
    for (const auto& [name, expected] : rows) {
        open(name);
        EXPECT_EQ(shown(), expected) << name;
    }
    EXPECT_EQ(folder.read("list.ini"), "e\r\na\r\nd\r\nb\r\n");
}

TEST_F(RecentFilesTest, Files_OfAllKinds_Load) {
    struct Row {
        std::string bytes;
        bool markBefore;
        std::string expected;
    };
    const Row rows[] = {
        {"/a,b.mp3\r\nmnuRecent2\r\nmnuRecent3\r\nmnuRecent4\r\n", false,
         "/a,b.mp3+ mnuRecent2 mnuRecent3 mnuRecent4 line"},
        {"only\r\n", false, "only+ only+ only+ only+ line"},
        {"mnuRecent1\r\nmnuRecent2\r\nmnuRecent3\r\nmnuRecent4\r\n", false,
         "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 line"},
        {"", false, "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 "},
        {"", true, "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 line"},
        {"\r\n\r\n\r\n\r\n", false, "mnuRecent1 mnuRecent2 mnuRecent3 mnuRecent4 "},
        {"a\nb\nc\nd\ne\n", false, "a+ b+ c+ d+ line"},
        {"\xEF\xBB\xBF\xD0\xAF\r\nx\r\n", false, "\xD0\xAF+ x+ x+ x+ line"},
    };
    for (const Row& row : rows) {
        folder.write("list.ini", row.bytes);
        int n = 0;
        for (controls::MenuItem* item : {&one, &two, &three, &four}) {
            item->caption = u"mnuRecent" + base::Text(1, static_cast<char16_t>(u'1' + n++));
            item->visible = false;
        }
        line.visible = false;
        list.load(row.markBefore);
        EXPECT_EQ(shown(), row.expected) << row.bytes;
    }
}

TEST_F(RecentFilesTest, Rubbish_AndFilesThatCannotBeWritten_StopNothing) {
    std::string rubbish;
    for (int i = 0; i < 200000; ++i)
        rubbish += static_cast<char>(i * 7919 % 256);
    folder.write("list.ini", rubbish);
    list.load(false);
    std::filesystem::remove(folder.path() / "list.ini");
    list.load(false);
    std::filesystem::create_directory(folder.path() / "list.ini");
    open("a");
    EXPECT_EQ(one.caption.get(), u"a");
}
