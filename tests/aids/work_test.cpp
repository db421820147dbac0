#include "aids/csv.h"
#include "aids/figures.h"
#include "aids/worklog.h"
#include "fakes/workbench.h"

using aids::TextFigures;

TEST(Figures, AreCounted) {
    const struct {
        const char16_t* text;
        TextFigures figures;
    } rows[] = {
        {u"", {0, 0, 0}},
        {u"  \t\r\n", {0, 3, 0}},
        {u"one two,\r\nthree\vfour", {4, 17, 16}},
        {u"don\u2019t \u201Cgo\u201D", {2, 10, 9}},
        {u"\U0001F600 a", {2, 3, 2}},
        {u"a\uFFFCb", {2, 2, 2}},
        {u"\u00AB\u202Foui\u202F\u00BB \u2014 non...", {2, 16, 12}},
        {u"\u65E5\u672C", {2, 2, 2}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(aids::figuresOf(row.text), row.figures) << base::toUtf8(row.text);
    EXPECT_EQ(aids::linesText(1000, 55, u","), u"18,2");
    EXPECT_EQ(aids::linesText(0, 65, u"."), u"0.0");
    EXPECT_EQ(aids::speedText(100, 120), u"50");
    EXPECT_EQ(aids::speedText(100, 5), u"-");
}

TEST(Csv, Cells_SurviveQuotingAndFormulasAreDefused) {
    const struct {
        const char16_t* text;
        const char* cell;
    } rows[] = {
        {u"talk.mp3", "talk.mp3"},
        {u"=SUM(A1)", "'=SUM(A1)"},
        {u"+1", "'+1"},
        {u"-x", "'-x"},
        {u"@a", "'@a"},
        {u"a, \"b\"\nc", "\"a, \"\"b\"\"\nc\""},
        {u"'=a", "'=a"},
        {u"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(aids::csvCell(row.text), row.cell);
    EXPECT_EQ(aids::csvCell(base::fromUtf8("\xFF"
                                           "a")),
              "\xEF\xBF\xBD"
              "a");
    EXPECT_EQ(aids::csvRows("\xEF\xBB\xBF"
                            "a;b;c\r\n'=1;\"x;\"\"y\n\";3"),
              (std::vector<std::vector<base::Text>>{{u"a", u"b", u"c"}, {u"=1", u"x;\"y\n", u"3"}}));
}

TEST(HeardParts, AreCountedOnce) {
    aids::HeardParts heard;
    EXPECT_EQ(heard.add(10, 20), 10);
    EXPECT_EQ(heard.add(15, 25), 5);
    EXPECT_EQ(heard.add(40, 50), 10);
    EXPECT_EQ(heard.add(5, 45), 20);
    EXPECT_EQ(heard.add(6, 6), 0);
    EXPECT_EQ(heard.total(), 45);
}

class WorklogTest : public testing::Test {
protected:
    WorklogTest() {
        log.Where = [this] { return place; };
        log.Hears = [this] { return sound; };
        log.Failed = [this](const base::Text& reason) { failures.push_back(reason); };
        log.start();
    }
    // One key every `pause` ms.
    void work(int keys, int pause) {
        for (int key = 0; key < keys; ++key) {
            log.worked();
            loop.advance(pause);
        }
    }
    std::string rows() const {
        const std::string bytes = folder.read("Worklog.csv");
        return bytes.substr(std::min(bytes.find('\n') + 1, bytes.size()));
    }

    fakes::TemporaryFolder folder;
    fakes::VirtualLoop loop;
    fakes::FakeWorker disk;
    aids::WorklogFile file{folder.text("Worklog.csv"), disk};
    aids::Worklog log{file, loop};
    aids::Worklog::Place place{u"2026-01-31", u"talk.mp3", u"=a.rtf"};
    aids::Worklog::Sound sound;
    std::vector<base::Text> failures;
};

TEST_F(WorklogTest, IdleTimeAboveAMinute_DoesNotCount) {
    work(1, 600'000);
    log.leave();
    EXPECT_EQ(rows(), "2026-01-31,talk.mp3,'=a.rtf,60,0,0\r\n");
}

TEST_F(WorklogTest, File_LosesHalfAMinuteAtMost_AndRowsOfOthersStay) {
    folder.write("Worklog.csv", "\"date\";\"x\"\n2026-01-30;old.mp3;b.rtf;120;60;40");
    work(100, 1'000);
    EXPECT_EQ(rows(), "2026-01-30;old.mp3;b.rtf;120;60;40\r\n2026-01-31,talk.mp3,'=a.rtf,90,0,0\r\n");
    place.date = u"2026-02-01";
    work(10, 1'000);
    folder.write("Worklog.csv",
                 "date,recording,document,a,b,c\r\n2026-01-31,talk.mp3,'=a.rtf,100,0,0,mine\r\n");
    place.document = u"c.rtf";
    work(5, 1'000);
    log.leave();
    EXPECT_EQ(rows(), "2026-01-31,talk.mp3,'=a.rtf,100,0,0,mine\r\n2026-02-01,talk.mp3,'=a.rtf,10,0,0\r\n"
                      "2026-02-01,talk.mp3,c.rtf,5,0,0\r\n");
    EXPECT_EQ(log.past().size(), 2U);
    EXPECT_TRUE(failures.empty());
}

TEST_F(WorklogTest, Sound_CountsOnce_AndJumpsAreNotHeard) {
    sound.plays = true;
    for (const double position : {1.0, 2.0, 3.0, 1.5, 2.5, 3.5, 300.0, 301.0}) {
        sound.position = position;
        loop.advance(1000);
    }
    sound.plays = false;
    log.flush();
    EXPECT_EQ(log.entry().secondsOfSound, 4) << "1 to 3.5 and one second at 300, rounded";
}

TEST_F(WorklogTest, FailureToWrite_IsToldOnce) {
    std::filesystem::create_directory(folder.path() / "Worklog.csv");
    work(200, 1'000);
    EXPECT_EQ(failures.size(), 1U);
    EXPECT_EQ(log.entry().secondsWorked, 200) << "what was done is known anyway";
}

class FiguresTest : public fakes::WorkbenchTest {};

TEST_F(FiguresTest, Window_CountsTheSelectionAlone_AndTheWordsThatWereTyped) {
    open("talk.mp3", 600);
    desktop.loop.advance(1000);
    for (const char16_t letter : base::Text(u"one two three four fife"))
        desktop.text.type(base::Text(1, letter));
    desktop.text.setSelRTF(u" pasted words");
    program->workstation().editor().undoRedo().moments().set(0, 3, moments::Moment{.start = 60'000});
    desktop.loop.advance(20'000);
    command("mnuFigures").Click();
    const auto& rows = desktop.figures->List1.items.get();
    const auto has = [&](base::TextView row) { return std::ranges::find(rows, row) != rows.end(); };
    EXPECT_TRUE(has(u"Whole document"));
    EXPECT_TRUE(has(u"Words\t7"));
    EXPECT_TRUE(has(u"Lines of 55 characters\t0.7"));
    EXPECT_TRUE(has(u"Typed up to\t01:00"));
    EXPECT_TRUE(has(u"Left to type\t09:00"));
    EXPECT_TRUE(has(u"Words a minute today\t14")) << "five words in 21 seconds";
    desktop.text.setSelStart(4);
    desktop.text.setSelLength(9);
    desktop.loop.advance(1000);
    EXPECT_TRUE(has(u"Selection"));
    EXPECT_TRUE(has(u"Words\t2"));
    EXPECT_TRUE(has(u"Characters with blanks\t9"));
    EXPECT_NE(desktop.folder.read("Files/Worklog.csv").find("talk.mp3,"), std::string::npos);
}
