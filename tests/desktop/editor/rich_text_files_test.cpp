#include "base/carry_on.h"
#include "fakes/temporary_folder.h"
#include "rich_text_fixture.h"

#include <filesystem>

using tests::RichText;

TEST_F(RichText, LoadFile_OfPlainText_ReadsItByItsMarkOrInThePage) {
    using namespace std::string_literals;
    struct Row {
        std::string bytes;
        base::TextView text;
    };
    const Row rows[] = {
        {"", u""},
        {"one\r\ntwo\r\n", u"one\r\ntwo\r\n"},
        {"one\ntwo\rthree", u"one\r\ntwo\r\nthree"},
        {"caf\xE9 \x80", u"caf\u00E9 \u20AC"},
        {"\xEF\xBB\xBF\xD0\x96\xF0\x9F\x98\x80", u"\u0416\U0001F600"},
        {"\xFF\xFE\x16\x04\x0D\x00\x0A\x00\x3D\xD8\x00\xDE"s, u"\u0416\r\n\U0001F600"},
        {"\xFE\xFF\x04\x16\x00\x0A\xD8\x3D\xDE\x00"s, u"\u0416\r\n\U0001F600"},
        {"\xFF\xFE\x16\x04\x0D"s, u"\u0416"},
        {"\xFF\xFE"s, u""},
        {"a {\\rtf1 is no start}", u"a {\\rtf1 is no start}"},
        {"{\\rtf1\\ansi\\ansicpg1251 \\'c6 {\\b bold}\\par}", u"\u0416 bold"},
        {"\r\n{\\rtf1 late}", u"late"},
    };
    const fakes::TemporaryFolder folder;
    for (const Row& row : rows) {
        folder.write("file", row.bytes);
        rtb.setText(u"before");
        rtb.setSelStart(3);
        changes = 0;
        rtb.LoadFile(folder.text("file"));
        EXPECT_EQ(rtb.Text(), row.text);
        EXPECT_EQ(rtb.SelStart(), 0);
        EXPECT_EQ(changes, 1);
    }
}

TEST_F(RichText, LoadFile_InAnotherPage_ReadsBytesByThatPage) {
    desktop::RichTextEdit cyrillic{base::CodePage(1251)};
    const fakes::TemporaryFolder folder;
    folder.write("file", "\xC6\xE8");
    cyrillic.LoadFile(folder.text("file"));
    EXPECT_EQ(cyrillic.Text(), u"\u0416\u0438");
}

TEST_F(RichText, LoadFile_OfWhatCannotBeRead_LeavesTheOldText) {
    const fakes::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "folder");
    rtb.setText(u"before");
    changes = 0;
    for (const char* const name : {"none", "folder", "folder/none"}) {
        EXPECT_THROW(rtb.LoadFile(folder.text(name)), base::Failure) << name;
        EXPECT_EQ(rtb.Text(), u"before");
        EXPECT_EQ(changes, 0);
    }
}

TEST_F(RichText, LoadFile_OfRubbishThatSaysItIsRtf_ShowsSomething) {
    const fakes::TemporaryFolder folder;
    std::string rubbish = "{\\rtf1 ";
    for (int i = 0; i < 4096; ++i)
        rubbish += static_cast<char>(i * 7919 >> 3);
    folder.write("file.rtf", rubbish);
    rtb.LoadFile(folder.text("file.rtf"));
    EXPECT_EQ(static_cast<std::size_t>(rtb.textLength()), rtb.Text().size());
}

TEST_F(RichText, SaveFile_WhereItCannotWrite_LeavesTheOldFile) {
    const fakes::TemporaryFolder folder;
    rtb.setText(u"text");
    EXPECT_THROW(rtb.SaveFile(folder.text("none/file.rtf")), base::Failure);
    folder.write("file.rtf", "old");
    rtb.SaveFile(folder.text("file.rtf"));
    EXPECT_TRUE(folder.read("file.rtf").starts_with("{\\rtf1"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}
