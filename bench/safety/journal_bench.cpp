// Cost of the journal of unsaved work: its part of a key press, restoring a long document, and its size after
// an hour of typing. Typing is in virtual time, the files are real. On the offscreen platform.
#include "desktop/application.h"
#include "desktop/qt/conversions.h"
#include "desktop/text/rich_text_edit.h"
#include "fakes/temporary_folder.h"
#include "fakes/virtual_loop.h"
#include "safety/disk_thread.h"
#include "safety/journal.h"
#include "table.h"

#include <QKeyEvent>
#include <QTextDocument>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>

namespace {

constexpr double medianGoal = 20;   // us
constexpr double tailGoal = 200;    // us
constexpr double restoreGoal = 300; // ms
constexpr int keyPeriod = 100;      // ms from key to key of a fast typist
constexpr int keys = 2000;
constexpr int keysInPlace = 60; // then the caret moves on

base::Text transcript(std::size_t letters, std::size_t paragraph) {
    base::Text text;
    while (text.size() < letters) {
        base::Text turn = u"Speaker: ";
        while (turn.size() < paragraph)
            turn += u"what was said in this turn, Привет, is a sentence or two. ";
        text += turn + u"\r\n";
    }
    return text;
}

// CPU time of this thread: the disk thread and other programs do not count.
double microseconds(const std::function<void()>& work) {
    const auto now = [] {
        timespec time{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    };
    const double start = now();
    work();
    return now() - start;
}

double percentile99(std::vector<double> values) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(values.size() * 99 / 100);
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

// Shows the control with its text and finishes what it would lay out in idle time.
void show(desktop::RichTextEdit& control, const base::Text& text) {
    control.resize(645, 229);
    control.show();
    control.setText(text);
    QApplication::processEvents();
    static_cast<desktop::EditorLayout&>(*control.document()->documentLayout())
        .measureFor(std::chrono::minutes(1));
}

// Words of five letters: a word without end would cost Qt's layout more than any journal.
void press(QTextEdit& control, int number) {
    const bool blank = number % 6 == 5;
    QKeyEvent down(QEvent::KeyPress, blank ? Qt::Key_Space : Qt::Key_X, Qt::NoModifier,
                   blank ? QStringLiteral(" ") : QStringLiteral("x"));
    QApplication::sendEvent(&control, &down);
    QApplication::processEvents();
}

// A text with a journal, as app::SafetyRoom wires it, in virtual time.
class JournaledText : private safety::JournalSource {
public:
    JournaledText(const base::Text& text, const std::filesystem::path& folder)
        : file_(folder / "Journal"), journal_(loop, disk, *this, base::fromUtf8(file_.string())) {
        show(rtb, text);
        rtb.Edited = [this] { keyCost_ += microseconds([this] { journal_.changed(); }); };
        journal_.flush();
    }

    // Presses a key and lets the time until the next one pass. Returns the journal's part of it on this
    // thread, in us.
    double key(int number) {
        keyCost_ = 0;
        press(rtb, number);
        return keyCost_ + pause(keyPeriod);
    }

    double pause(int ms) {
        return microseconds([&] { loop.advance(ms); });
    }

    double bytes() {
        disk.drain();
        return static_cast<double>(std::filesystem::file_size(file_));
    }

    void moveTo(double place) { rtb.setSelStart(static_cast<std::int32_t>(place * rtb.textLength())); }

    std::string wholeText() override { return rtb.takeAllParagraphs(); }
    const std::filesystem::path& file() const { return file_; }

    desktop::RichTextEdit rtb{base::CodePage(1252)};
    fakes::VirtualLoop loop;
    safety::DiskThread disk;

private:
    std::optional<platform::ParagraphChange> takeChange() override { return rtb.takeParagraphs(); }
    safety::DocumentState documentState() override { return {{}, u"Untitled 1", rtb.SelStart(), true, 0}; }
    safety::Marks marks() override { return {}; }

    std::filesystem::path file_;
    safety::Journal journal_;
    double keyCost_ = 0;
};

// The text of 1 MB with a journal beside the same control without one, key by key.
void measureKeys(const std::string& what, std::size_t paragraph, const std::filesystem::path& folder) {
    const base::Text text = transcript(1'000'000, paragraph);
    JournaledText journaled(text, folder);
    desktop::RichTextEdit bare{base::CodePage(1252)};
    show(bare, text);
    std::vector<double> journalPart;
    std::vector<double> bareKey;
    for (int i = 0; i < keys; ++i) {
        if (i % keysInPlace == 0) {
            journaled.moveTo(static_cast<double>(i) / keys);
            bare.setSelStart(journaled.rtb.SelStart());
        }
        journalPart.push_back(journaled.key(i));
        bareKey.push_back(microseconds([&] { press(bare, i); }));
    }
    const auto row = [&](const std::string& name, double part, double whole, double goal) {
        bench::print({"Journal's part of a key press, " + what + ", " + name, bench::measure("%.1f us", part),
                      bench::measure("%.1f us", whole), bench::measure("%+.0f %%", part / whole * 100),
                      bench::measure("<= %.0f us", goal), part <= goal});
    };
    row("median", bench::median(journalPart), bench::median(bareKey), medianGoal);
    row("p99", percentile99(journalPart), percentile99(bareKey), tailGoal);
    const double all = microseconds([&] { journaled.wholeText(); }) / 1000;
    bench::print({"Journal of 1 MB begun, " + what, bench::measure("%.1f ms", all), "", "", ""});
}

// A journal of 1 MB and a thousand changes, compared with opening the same text from its file.
void measureRestore(const std::filesystem::path& folder) {
    JournaledText journaled(transcript(1'000'000, 100), folder);
    for (int i = 0; i < 1000; ++i) {
        journaled.moveTo(i / 1000.0);
        for (int n = 0; n < 3; ++n)
            journaled.key(n);
    }
    journaled.disk.drain();
    const std::string source = journaled.rtb.source();
    std::vector<double> restored;
    std::vector<double> opened;
    for (int i = 0; i < 7; ++i) {
        desktop::RichTextEdit control{base::CodePage(1252)};
        control.resize(645, 229);
        control.show();
        restored.push_back(microseconds([&] {
                               const safety::Work work = safety::replay(
                                   safety::JournalFile::read(base::fromUtf8(journaled.file().string())));
                               control.setSource(work.source);
                               control.setSelStart(work.document.caret);
                               control.viewport()->repaint();
                           }) /
                           1000);
        if (control.textLength() != journaled.rtb.textLength()) {
            std::fputs("The journal does not restore the text.\n", stderr);
            std::exit(1);
        }
        desktop::RichTextEdit bare{base::CodePage(1252)};
        bare.resize(645, 229);
        bare.show();
        opened.push_back(microseconds([&] {
                             bare.setSource(source);
                             bare.viewport()->repaint();
                         }) /
                         1000);
    }
    const double time = bench::median(restored);
    const double bare = bench::median(opened);
    bench::print({"Restored from the journal, 1 MB with 1000 changes", bench::measure("%.0f ms", time),
                  bench::measure("%.0f ms", bare), bench::measure("x %.2f", time / bare),
                  bench::measure("<= %.0f ms", restoreGoal), time <= restoreGoal});
}

// An hour of typing at the end of a text, a paragraph every 30 s, without a pause; the source is the
// baseline.
void measureHour(const std::filesystem::path& folder) {
    constexpr int paragraphs = 120;
    constexpr int keysOfParagraph = 300;
    JournaledText journaled(transcript(20'000, 100), folder);
    journaled.moveTo(1);
    double largest = 0;
    for (int i = 0; i < paragraphs; ++i) {
        for (int n = 0; n < keysOfParagraph; ++n) {
            journaled.key(n);
            if (n % 10 == 0)
                largest = std::max(largest, journaled.bytes());
        }
        journaled.rtb.setSelText(u"\r\n");
    }
    const auto source = static_cast<double>(journaled.rtb.source().size());
    const double goal = std::max(1e6, 4 * source) * 1.1;
    bench::print({"Journal in an hour of typing, largest size", bench::measure("%.0f KB", largest / 1000),
                  bench::measure("%.0f KB", source / 1000), bench::measure("x %.1f", largest / source),
                  bench::measure("<= %.0f KB", goal / 1000), largest <= goal});
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const desktop::Application application(argc, argv);
    const fakes::TemporaryFolder folder;
    measureKeys("paragraphs of 100", 100, folder.path());
    measureKeys("paragraphs of 2000", 2000, folder.path());
    measureRestore(folder.path());
    measureHour(folder.path());
}
