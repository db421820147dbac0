#include "base/files.h"
#include "fakes/fake_worker.h"
#include "fakes/temporary_folder.h"
#include "fakes/virtual_loop.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"
#include "safety/journal.h"
#include "testing.h"

using platform::ParagraphChange;
using safety::Record;
using safety::RecordType;

namespace {

std::string source(const std::vector<std::string>& paragraphs) {
    std::string rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1 Courier;}}";
    for (const std::string& paragraph : paragraphs)
        rtf += "\\pard " + paragraph + "\\par\n";
    return rtf + "}";
}

// A canonical form, the same for all sources of one text, and readable when a test fails.
std::string asWritten(const std::string& rtf) {
    return rtf::write(rtf::read(rtf));
}

// An editor from the journal's point of view: RTF paragraphs that change as whole paragraphs.
class Editor : public safety::JournalSource {
public:
    std::optional<platform::ParagraphChange> takeChange() override {
        return std::exchange(change_, std::nullopt);
    }
    std::string wholeText() override {
        ++asked;
        change_.reset();
        return source(paragraphs);
    }
    safety::DocumentState documentState() override { return state; }
    safety::Marks marks() override { return held; }

    void replace(std::size_t first, std::size_t removed, const std::vector<std::string>& inserted) {
        const auto at = paragraphs.begin() + static_cast<std::ptrdiff_t>(first);
        paragraphs.insert(paragraphs.erase(at, at + static_cast<std::ptrdiff_t>(removed)), inserted.begin(),
                          inserted.end());
        change_ = ParagraphChange{static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(removed),
                                  inserted.empty() ? "" : source(inserted), false};
    }

    std::vector<std::string> paragraphs{"first"};
    safety::DocumentState state;
    safety::Marks held;
    int asked = 0; // for the whole text

private:
    std::optional<platform::ParagraphChange> change_;
};

struct JournalTest : testing::Test {
    base::Text path() const { return folder.text("Journal"); }
    safety::Work restored() const { return safety::replay(safety::JournalFile::read(path())); }
    void change(std::size_t first, std::size_t removed, const std::vector<std::string>& inserted) {
        editor.replace(first, removed, inserted);
        journal.changed();
    }
    void expectRestored() { EXPECT_EQ(asWritten(restored().source), asWritten(source(editor.paragraphs))); }

    fakes::TemporaryFolder folder;
    fakes::VirtualLoop loop;
    fakes::FakeWorker disk;
    Editor editor;
    safety::Journal journal{loop, disk, editor, path()};
};

} // namespace

TEST_F(JournalTest, EveryChange_IsWrittenWithinASecond) {
    change(0, 1, {"first, typed"});
    loop.advance(900);
    expectRestored();
    editor.state = {u"/a/b.rtf", u"b.rtf", 7, true, 42};
    editor.held = {u"/a/b.mp3", {u"00:00:05 start"}};
    change(1, 0, {"{\\f1\\b second}", "third"});
    loop.advance(900);
    expectRestored();
    EXPECT_EQ(restored().document, editor.state);
    EXPECT_EQ(restored().marks, editor.held);
    journal.close();
    EXPECT_FALSE(base::fileExists(path()));
}

TEST_F(JournalTest, DamagedOrTruncatedRecord_EndsTheReplay) {
    change(0, 1, {"one"});
    loop.advance(400);
    const std::size_t intact = folder.read("Journal").size();
    change(0, 1, {"two"});
    loop.advance(400);
    const std::string bytes = folder.read("Journal");
    const auto replayed = [](std::string_view left) {
        return rtf::plainText(rtf::read(safety::replay(safety::intactRecords(left)).source));
    };
    EXPECT_EQ(replayed(bytes), u"two");
    for (std::size_t at = intact; at < bytes.size(); ++at) {
        std::string damaged = bytes;
        damaged[at] ^= 1;
        EXPECT_EQ(replayed(damaged), u"one") << at;
        EXPECT_EQ(replayed(bytes.substr(0, at)), u"one") << at;
    }
}

TEST_F(JournalTest, InvalidChange_KeepsTheTextBeforeIt) {
    const std::vector<Record> records = {
        {RecordType::Source, source({"kept"})},
        {RecordType::Change, safety::packed(ParagraphChange{5, 1, source({"lost"}), false})},
        {RecordType::Change, safety::packed(ParagraphChange{0, 1, source({"too late"}), false})},
    };
    const safety::Work work = safety::replay(records);
    EXPECT_FALSE(work.whole);
    EXPECT_EQ(rtf::plainText(rtf::read(work.source)), u"kept");
}

TEST_F(JournalTest, JournalLargerThanTheText_IsRewritten_WithoutAPause) {
    editor.paragraphs = {std::string(200'000, 'x'), ""};
    editor.held = {u"/a/b.mp3", {u"00:00:05 start"}};
    for (int step = 0; step < 20; ++step) {
        change(0, 1, {std::string(200'000, 'x') + std::to_string(step)});
        loop.advance(400);
        EXPECT_LT(folder.read("Journal").size(), 1'500'000U);
        expectRestored();
    }
    EXPECT_EQ(restored().marks, editor.held);
    EXPECT_EQ(editor.asked, 1) << "no key waits for the whole text";
}

TEST_F(JournalTest, FailingDisk_IsReportedOnce_AndGetsTheWholeTextLater) {
    std::vector<base::Text> reasons;
    journal.Failed = [&](const base::Text& reason) { reasons.push_back(reason); };
    std::filesystem::create_directory(folder.path() / "Journal");
    change(0, 1, {"typed while the disk refuses"});
    loop.advance(10'000);
    EXPECT_EQ(reasons.size(), 1U);
    std::filesystem::remove(folder.path() / "Journal");
    for (int tenth = 0; tenth < 30; ++tenth) {
        change(0, 1, {"typed on " + std::to_string(tenth)});
        loop.advance(100);
    }
    loop.advance(400);
    expectRestored();
}
