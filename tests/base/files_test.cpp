#include "base/binary_file.h"
#include "base/carry_on.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/unfinished_file.h"
#include "fakes/temporary_folder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

struct FilesTest : testing::Test {
    auto fileCount() const { return std::distance(fs::directory_iterator(folder.path()), {}); }

    fakes::TemporaryFolder folder;
};

TEST_F(FilesTest, Replace_KeepsPermissionsAndLinks_AndLeavesNoTemporaryFile) {
    folder.write("real.ini", "old");
    fs::permissions(folder.path() / "real.ini", fs::perms(0640));
    fs::create_symlink("real.ini", folder.path() / "link.ini");
    folder.write("real.ini.new", "the user's own");
    const auto descriptors = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    const auto before = descriptors();
    base::replaceFile(folder.text("link.ini"), "new");
    EXPECT_EQ(descriptors(), before);
    EXPECT_EQ(folder.read("real.ini"), "new");
    EXPECT_EQ(folder.read("real.ini.new"), "the user's own");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.ini"));
    EXPECT_EQ(fs::status(folder.path() / "real.ini").permissions(), fs::perms(0640));
    EXPECT_EQ(fileCount(), 3);
}

TEST_F(FilesTest, Replace_WithHardLinks_OverwritesInPlace_WhileTheOldBytesAreKept) {
    for (const std::string bytes : {"a longer text", "x"}) {
        folder.write("a", "old text");
        fs::create_hard_link(folder.path() / "a", folder.path() / "b");
        EXPECT_THROW(base::replaceFile(folder.text("a"), bytes), base::Failure) << "no handler";
        base::setKeepOld([&](base::TextView path, std::string_view held, const auto& write) {
            EXPECT_EQ(path, folder.text("a"));
            EXPECT_EQ(held, folder.read("b"));
            EXPECT_EQ(held, "old text");
            write();
        });
        base::replaceFile(folder.text("a"), bytes);
        base::setKeepOld({});
        EXPECT_EQ(folder.read("b"), bytes);
        fs::remove(folder.path() / "b");
    }
}

TEST_F(FilesTest, Replace_FollowsADanglingLink) {
    fs::create_directory(folder.path() / "sub");
    fs::create_symlink("sub/next", folder.path() / "link");
    fs::create_symlink("real", folder.path() / "sub/next");
    base::replaceFile(folder.text("link"), "new");
    EXPECT_EQ(folder.read("sub/real"), "new");
    base::replacePrivateFile(folder.text("sub/real"), "private");
    EXPECT_EQ(fs::status(folder.path() / "sub/real").permissions(), fs::perms(0600));
}

TEST_F(FilesTest, CheckWritable_ReportsTheReason_AndLeavesNoFile) {
    folder.write("file", "x");
    for (const auto& [name, reason] : {std::pair<std::string, std::string>{"file", ""},
                                       {"new", ""},
                                       {"", "Is a directory"},
                                       {"file/x", "Not a directory"},
                                       {"none/x", "No such file"},
                                       {std::string(256, 'x'), "name too long"}}) {
        std::string told;
        base::carryOn([&, n = name] { base::checkWritable(folder.text(n)); },
                      [&](const char* words) { told = words; });
        EXPECT_THAT(told, testing::HasSubstr(reason)) << name;
        EXPECT_EQ(told.empty(), reason.empty()) << told;
    }
    EXPECT_THROW(base::replaceFile(folder.text("no/such/folder"), ""), base::Failure);
    EXPECT_THROW(base::readFile(folder.text("missing")), base::Failure);
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(FilesTest, Replace_WithTheLongestNames_LeavesNoTemporaryFile) {
    // With 251 bytes the suffix of the temporary file still fits, with 255 it does not.
    for (const std::string& name : {std::string(251, 'a'), std::string(255, 'b')}) {
        base::replaceFile(folder.text(name), "old");
        base::replaceFile(folder.text(name), "new");
        EXPECT_EQ(folder.read(name), "new");
    }
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FilesTest, RemoveUnfinished_RemovesFilesOfKilledProcesses_AndNoOthers) {
    const std::pair<std::string, bool> rows[] = {
        {"a.ini", true},
        {"a.ini.quillmere-new", false},
        {"b.ini.quillmere-new12", false},
        {"a.ini.new", false},
        {"a.ini.new2", false},
        {"a.ini.new 2", true},
        {"letter.new", true},
        {".new", true},
        {".quillmere-new", true},
        {"b.ini.newer", true},
        {"12", true},
    };
    for (const auto& [name, stays] : rows)
        folder.write(name, "x");
    folder.write("b.ini.quillmere-new", "");
    const base::BinaryFile written(folder.text("b.ini.quillmere-new"));
    base::removeUnfinished(folder.text(""), [](base::TextView name) { return name.ends_with(u".ini"); });
    for (const auto& [name, stays] : rows)
        EXPECT_EQ(fs::exists(folder.path() / name), stays) << name;

    // A save removes the temporary file of an earlier one, and avoids one that is being written.
    folder.write("a.ini.quillmere-new", "half");
    base::replaceFile(folder.text("a.ini"), "new");
    base::replaceFile(folder.text("b.ini"), "new");
    EXPECT_EQ(folder.read("a.ini") + folder.read("b.ini"), "newnew");
    EXPECT_FALSE(fs::exists(folder.path() / "a.ini.quillmere-new"));
    EXPECT_TRUE(fs::exists(folder.path() / "b.ini.quillmere-new"));
    base::removeUnfinished(folder.text("missing"), [](base::TextView) { return true; });
}

TEST_F(FilesTest, BinaryFile_RefusesASecondWriter) {
    const base::BinaryFile first(folder.text("a.wav"));
    EXPECT_THROW(base::BinaryFile second(folder.text("a.wav")), base::Failure);
}

TEST_F(FilesTest, Lines_MayHaveAnyKindOfLineEnd) {
    const base::TextFiles files{base::CodePage(1252)};
    const std::pair<std::string, std::vector<base::Text>> rows[] = {
        {"", {}},
        {"a\r\nb\r\n", {u"a", u"b"}},
        {"a\nb", {u"a", u"b"}},
        {"a\r\rb", {u"a", u"", u"b"}},
        {"\xEF\xBB\xBF\xD0\xAF\r\n", {u"Я"}},
        {"\xD0\xAF\r\n", {u"Я"}},
        {"\xE9\r\n", {u"é"}},
    };
    for (const auto& [bytes, lines] : rows) {
        folder.write("lines", bytes);
        EXPECT_EQ(files.readLines(folder.text("lines")), lines) << bytes;
    }
    const std::vector<base::Text> written = {u"é", u"", u"a\nb\r\nc"};
    files.writeLines(folder.text("lines"), written);
    EXPECT_TRUE(folder.read("lines").starts_with("\xEF\xBB\xBF\xC3\xA9\r\n\r\na"));
    EXPECT_EQ(files.readLines(folder.text("lines")), written);
}
