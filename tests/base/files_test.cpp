#include "base/carry_on.h"
#include "base/files.h"
#include "fakes/temporary_folder.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
protected:
    fakes::TemporaryFolder folder;
};

TEST_F(FilesTest, Replace_KeepsPermissionsAndLinks_AndLeavesNothingBeside) {
    folder.write("real.ini", "old");
    fs::permissions(folder.path() / "real.ini", fs::perms(0640));
    fs::create_symlink("real.ini", folder.path() / "link.ini");
    base::replaceFile(folder.text("link.ini"), "new");
    EXPECT_EQ(folder.read("real.ini"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.ini"));
    EXPECT_EQ(fs::status(folder.path() / "real.ini").permissions(), fs::perms(0640));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST_F(FilesTest, Replace_OnAFullDisk_LeavesTheOldFile) {
    folder.write("kept.ini", "what the user had");
    // A limit on file sizes fails a write halfway, as a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{4096, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(base::replaceFile(folder.text("kept.ini"), std::string(100000, 'x')), base::Failure);
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(folder.read("kept.ini"), "what the user had");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_F(FilesTest, Failures_AreToldInTheSystemsWords) {
    EXPECT_THROW(base::readFile(folder.text("missing")), base::Failure);
    EXPECT_THROW(base::readFile(folder.text("")), base::Failure);
    EXPECT_THROW(base::replaceFile(folder.text("no/such/folder"), ""), base::Failure);
    EXPECT_THROW(base::replaceFile(folder.text(""), ""), base::Failure);
    try {
        base::readFile(folder.text("missing"));
    } catch (const base::Failure& failure) {
        EXPECT_NE(std::string(failure.what()).find("No such file"), std::string::npos);
    }
}

TEST_F(FilesTest, Exists_IsForFilesOnly) {
    folder.write("a.mp3", "");
    fs::create_directory(folder.path() / "b");
    EXPECT_TRUE(base::fileExists(folder.text("a.mp3")));
    for (const std::string name : {"b", "none", "a.mp3/c", ""})
        EXPECT_FALSE(base::fileExists(folder.text(name))) << name;
    EXPECT_FALSE(base::fileExists(base::Text(70000, u'x')));
}

TEST_F(FilesTest, Lines_EndInAnyOfTheWaysThatSystemsEndThem) {
    const base::TextFiles files{base::CodePage(1252)};
    const std::pair<std::string, std::vector<base::Text>> rows[] = {
        {"", {}},
        {"a\r\nb\r\n", {u"a", u"b"}},
        {"a\nb", {u"a", u"b"}},
        {"a\r\rb", {u"a", u"", u"b"}},
        {"\r\n", {u""}},
        {"\xEF\xBB\xBF\xD0\xAF\r\n", {u"Я"}},
    };
    for (const auto& [bytes, lines] : rows) {
        folder.write("lines", bytes);
        EXPECT_EQ(files.readLines(folder.text("lines")), lines) << bytes;
    }
    files.writeLines(folder.text("lines"), {u"é", u""});
    EXPECT_EQ(folder.read("lines"), "\xE9\r\n\r\n");
}

TEST(ReplaceFile, OfTheLongestNames_LeavesNothingBesideIt) {
    const fakes::TemporaryFolder folder;
    // 251 bytes leave room for the addition, the others do not; 127 letters of two bytes are 254.
    std::string letters = "x";
    for (int i = 0; i < 127; ++i)
        letters += "\xD0\x96";
    for (const std::string& name : {std::string(251, 'a'), std::string(255, 'b'), letters}) {
        base::replaceFile(folder.text(name), "old");
        base::replaceFile(folder.text(name), "new");
        EXPECT_EQ(folder.read(name), "new");
    }
    const std::filesystem::directory_iterator files(folder.path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 3);
}
