#include "base/carry_on.h"
#include "base/files.h"
#include "fakes/full_disk.h"
#include "fakes/temporary_folder.h"
#include "testing.h"

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
protected:
    auto fileCount() const { return std::distance(fs::directory_iterator(folder.path()), {}); }

    fakes::TemporaryFolder folder;
};

TEST_F(FilesTest, Replace_KeepsPermissionsAndLinks_AndLeavesNothingBeside) {
    folder.write("real.ini", "old");
    fs::permissions(folder.path() / "real.ini", fs::perms(0640));
    fs::create_symlink("real.ini", folder.path() / "link.ini");
    folder.write("real.ini.new", "the user's own");
    base::replaceFile(folder.text("link.ini"), "new");
    EXPECT_EQ(folder.read("real.ini"), "new");
    EXPECT_EQ(folder.read("real.ini.new"), "the user's own");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.ini"));
    EXPECT_EQ(fs::status(folder.path() / "real.ini").permissions(), fs::perms(0640));
    EXPECT_EQ(fileCount(), 3);
}

TEST_F(FilesTest, Replace_OfTheLongestNames_LeavesNothingBeside) {
    // 251 bytes leave room for the addition, 255 do not.
    for (const std::string& name : {std::string(251, 'a'), std::string(255, 'b')}) {
        base::replaceFile(folder.text(name), "old");
        base::replaceFile(folder.text(name), "new");
        EXPECT_EQ(folder.read(name), "new");
    }
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FilesTest, Replace_OnAFullDisk_LeavesTheOldFile) {
    folder.write("kept.ini", "what the user had");
    {
        const fakes::FullDisk disk(4096);
        EXPECT_THROW(base::replaceFile(folder.text("kept.ini"), std::string(100000, 'x')), base::Failure);
    }
    EXPECT_EQ(folder.read("kept.ini"), "what the user had");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(FilesTest, Failures_AreToldInTheSystemsWords) {
    EXPECT_THROW(base::replaceFile(folder.text("no/such/folder"), ""), base::Failure);
    EXPECT_THAT([&] { base::readFile(folder.text("missing")); },
                testing::ThrowsMessage<base::Failure>(testing::HasSubstr("No such file")));
}

TEST_F(FilesTest, Lines_EndInAnyOfTheWaysThatSystemsEndThem) {
    const base::TextFiles files{base::CodePage(1252)};
    const std::pair<std::string, std::vector<base::Text>> rows[] = {
        {"", {}},
        {"a\r\nb\r\n", {u"a", u"b"}},
        {"a\nb", {u"a", u"b"}},
        {"a\r\rb", {u"a", u"", u"b"}},
        {"\xEF\xBB\xBF\xD0\xAF\r\n", {u"Я"}},
    };
    for (const auto& [bytes, lines] : rows) {
        folder.write("lines", bytes);
        EXPECT_EQ(files.readLines(folder.text("lines")), lines) << bytes;
    }
    files.writeLines(folder.text("lines"), {u"é", u""});
    EXPECT_EQ(folder.read("lines"), "\xE9\r\n\r\n");
}
