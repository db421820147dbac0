#include "safety/archive.h"

#include "base/carry_on.h"
#include "fakes/temporary_folder.h"
#include "safety/notices.h"
#include "testing.h"

#include <sys/stat.h>

using lang::operator""_en;
using safety::Archive;
using safety::Reason;
using safety::Version;

namespace {

constexpr std::int64_t day = 24 * 60 * 60;
constexpr std::int64_t now = 1'750'000'000;

struct ArchiveTest : testing::Test {
    std::vector<std::string> kept() const {
        std::vector<std::string> contents;
        for (const Version& version : archive.versions())
            contents.push_back(folder.read("Archive/" + base::toUtf8(base::afterLast(version.path, u'/'))));
        return contents;
    }

    fakes::TemporaryFolder folder;
    Archive archive{folder.text("Archive"), {.age = 30 * day, .size = 10}};
};

} // namespace

TEST_F(ArchiveTest, Version_IsAPlainFile_ReadableOnlyByItsOwner) {
    archive.keep(u"Interview [1]. Dr/A", "text", u"rtf", Reason::SaveFailed, now);
    const std::vector<Version> versions = archive.versions();
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(versions[0].document, u"Interview [1]. Dr_A");
    EXPECT_EQ(versions[0].extension, u"rtf");
    EXPECT_EQ(versions[0].time, now);
    EXPECT_EQ(versions[0].size, 4U);
    EXPECT_EQ(versions[0].reason, Reason::SaveFailed);
    struct stat about {};
    ::stat((folder.path() / "Archive").c_str(), &about);
    EXPECT_EQ(about.st_mode & 0777U, 0700U);
    ::stat(base::toUtf8(versions[0].path).c_str(), &about);
    EXPECT_EQ(about.st_mode & 0777U, 0600U);
}

TEST_F(ArchiveTest, EqualVersions_AreKeptOnce_DifferentOnesOfTheSameSecondBoth) {
    for (const char* bytes : {"one", "two", "one", "two"})
        archive.keep(u"a", bytes, u"rtf", Reason::Exit, now);
    EXPECT_EQ(archive.versions().size(), 2U);
}

TEST_F(ArchiveTest, BeyondItsLimits_TheOldestAreDeleted_ButNotTheNewestOfADocument) {
    archive.keep(u"a", "a1", u"rtf", Reason::Exit, now);
    archive.keep(u"b", "b1", u"rtf", Reason::Exit, now + 1);
    archive.keep(u"a", "a2", u"rtf", Reason::Exit, now + 2);
    archive.keep(u"b", "b22222", u"rtf", Reason::Exit, now + 3);
    EXPECT_EQ(kept(), (std::vector<std::string>{"b22222", "a2", "b1"})) << "12 bytes would be too many";
    archive.keep(u"c", "c", u"bm", Reason::Marks, now + 40 * day);
    EXPECT_EQ(kept(), (std::vector<std::string>{"c", "b22222", "a2"}));
    folder.write("Archive/notes.txt", "not a version");
    archive.removeAll();
    EXPECT_TRUE(archive.versions().empty());
    EXPECT_EQ(folder.read("Archive/notes.txt"), "not a version");
}

TEST_F(ArchiveTest, UncreatableFolder_Fails) {
    folder.write("Archive", "a file");
    EXPECT_FALSE(base::carryOn([&] { archive.keep(u"a", "x", u"rtf", Reason::Exit, now); }));
}

TEST(Notices, RepeatedWithinAMinute_AreListedOnce) {
    std::int64_t time = now;
    safety::Notices notices([&] { return time; });
    notices.tell(u"full"_en, {u"a"});
    notices.tell(u"full"_en, {u"b"});
    time += 59;
    notices.tell(u"full"_en, {u"a"});
    ASSERT_EQ(notices.all().size(), 2U);
    EXPECT_EQ(notices.all().front().time, time);
    time += 60;
    notices.tell(u"full"_en, {u"a"});
    EXPECT_EQ(notices.all().size(), 3U);
}
