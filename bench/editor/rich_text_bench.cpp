// Compares the rich-text control with Qt's own for a transcript of five million characters, on the offscreen
// platform. Best of several rounds.
#include "base/files.h"
#include "desktop/application.h"
#include "desktop/qt/conversions.h"
#include "desktop/text/rich_text_edit.h"
#include "fakes/temporary_folder.h"
#include "table.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QTextBlock>
#include <chrono>
#include <functional>
#include <limits>
#include <malloc.h>

namespace {

constexpr std::size_t letters = 5'000'000;
constexpr double openingGoal = 400;    // ms
constexpr double searchGoal = 15;      // ms
constexpr double replacingGoal = 1000; // ms
constexpr double placeGoal = 5;        // us
constexpr double typingGoal = 1.2;     // ratio to the bare control
constexpr double memoryGoal = 1.3;     // ratio to the bare control
constexpr int places = 100'000;

// Plain turns of speakers, each a paragraph.
base::Text transcript() {
    base::Text text;
    for (int turn = 0; text.size() < letters; ++turn)
        text += u"Speaker " + base::fromUtf8(std::to_string(turn % 5)) +
                u" [00:01:05]: what was said in this turn, Привет, is a sentence or two with a pause.\r\n";
    return text;
}

// The same with format changes every few words.
std::string formatted() {
    std::string rtf = "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red0\\green0\\blue160;}\r\n";
    for (int turn = 0; rtf.size() < letters; ++turn)
        rtf += "\\pard\\plain\\f0\\fs22{\\b\\cf1 Speaker " + std::to_string(turn % 5) +
               "} [00:01:05]: what was said in {\\i this turn} is a sentence or two with a pause.\\par\r\n";
    return rtf + '}';
}

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double best(int rounds, const std::function<void()>& work) {
    double least = milliseconds(work);
    for (int round = 1; round < rounds; ++round)
        least = std::min(least, milliseconds(work));
    return least;
}

void type(QTextEdit& control) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(&control, &press);
    QApplication::processEvents();
}

double typing(QTextEdit& control, QTextCursor::MoveOperation where) {
    control.moveCursor(where);
    type(control);
    return best(15, [&] { type(control); });
}

// Prints a row; the goal is in the unit of `format`.
void printRow(const std::string& what, const char* format, double value, double goal,
              const std::string& bare = {}) {
    bench::print(
        {what, bench::measure(format, value), bare, "", "<= " + bench::measure(format, goal), value <= goal});
}

void measureOpening(desktop::RichTextEdit& rtb, QTextEdit& bare, const base::Text& text) {
    const fakes::TemporaryFolder folder;
    folder.write("long.rtf", formatted());
    folder.write("long.txt", base::toUtf8(text).insert(0, "\xEF\xBB\xBF"));
    const QString plain = desktop::qstring(text);
    const double bareTime = best(3, [&] {
        bare.setPlainText(plain);
        bare.viewport()->repaint();
    });
    for (const char* const name : {"long.rtf", "long.txt"}) {
        double time = std::numeric_limits<double>::max();
        for (int round = 0; round < 3; ++round) {
            time = std::min(time, milliseconds([&] {
                                rtb.LoadFile(folder.text(name));
                                rtb.viewport()->repaint();
                            }));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the document before
        }
        printRow(std::string("5 MB opened to first paint, ") + name, "%.0f ms", time, openingGoal,
                 bench::measure("%.0f ms", bareTime));
        if (name == std::string_view("long.rtf"))
            bench::print({"5 MB saved as RTF",
                          bench::measure("%.0f ms", best(3, [&] { rtb.SaveFile(folder.text("out.rtf")); })),
                          "", "", ""});
    }
}

// Heap bytes in use.
double heap() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

template <typename Control, typename Fill>
double memory(Fill&& fill) {
    const double before = heap();
    Control control{base::CodePage(1252)};
    control.resize(645, 229);
    control.show();
    fill(control);
    control.document()->documentLayout()->documentSize();
    QApplication::processEvents();
    return heap() - before;
}

struct BareControl : QTextEdit {
    explicit BareControl(const base::CodePage&) {}
};

void measureMemory(const base::Text& text) {
    constexpr double megabyte = 1024 * 1024;
    const fakes::TemporaryFolder folder;
    folder.write("long.rtf", formatted());
    folder.write("long.txt", base::toUtf8(text).insert(0, "\xEF\xBB\xBF"));
    for (const char* const name : {"long.txt", "long.rtf"}) {
        desktop::RichTextEdit reader{base::CodePage(1252)};
        reader.LoadFile(folder.text(name));
        const base::Text same = reader.Text();
        reader.setText({});
        const double own =
            memory<desktop::RichTextEdit>([&](auto& control) { control.LoadFile(folder.text(name)); });
        const double baseline = memory<BareControl>(
            [&](auto& control) { control.setPlainText(desktop::qstring(base::TextView(same))); });
        bench::print({std::string("Memory of 5 MB, ") + name, bench::measure("%.1f MB", own / megabyte),
                      bench::measure("%.1f MB", baseline / megabyte),
                      bench::measure("x %.2f", own / baseline), bench::measure("<= x %.1f", memoryGoal),
                      own <= baseline * memoryGoal});
    }
}

void measureTyping(desktop::RichTextEdit& rtb, QTextEdit& bare) {
    for (const auto& [name, where] :
         {std::pair{"start", QTextCursor::Start}, std::pair{"end", QTextCursor::End}}) {
        const double own = typing(rtb, where);
        const double baseline = typing(bare, where);
        bench::print({std::string("Letter typed at the ") + name + " of 5 MB", bench::measure("%.2f ms", own),
                      bench::measure("%.2f ms", baseline), bench::measure("x %.2f", own / baseline),
                      bench::measure("<= x %.1f", typingGoal), own <= baseline * typingGoal});
    }
}

void measureSearch(desktop::RichTextEdit& rtb, QTextEdit& bare) {
    const double bareTime = best(3, [&] { bare.document()->find(QStringLiteral("not in it anywhere"), 0); });
    struct Search {
        const char* what;
        base::TextView wanted;
        int options;
    };
    for (const Search& search :
         {Search{"5 MB searched, any case", u"not in it anywhere", 0},
          Search{"5 MB searched, one case", u"not in it anywhere", platform::findMatchCase},
          Search{"5 MB searched over paragraph ends", u"pause.\r\nnot in it", 0},
          Search{"5 MB searched, Cyrillic", u"пока", 0}})
        printRow(search.what, "%.1f ms", best(5, [&] { rtb.Find(search.wanted, 0, search.options); }),
                 searchGoal, bench::measure("%.1f ms", bareTime));
    const double words = best(3, [&] { rtb.Find(u"entence", 0, platform::findWholeWord); });
    printRow("5 MB with a false hit in each line, whole words", "%.1f ms", words, searchGoal);
}

void measurePlaces(const desktop::RichTextEdit& rtb) {
    const QTextDocument& document = *rtb.document();
    const std::int32_t length = rtb.textLength();
    std::int64_t sum = 0;
    const double time = best(3, [&] {
        for (std::int64_t i = 0; i < places; ++i)
            sum += desktop::programPosition(document, desktop::documentPosition(document, i * 7919 % length));
    });
    if (sum == 0)
        std::puts("no place was found");
    printRow("A place in 5 MB, there and back", "%.2f us", time * 1000 / places, placeGoal);
}

// Counts the paint events of a widget.
class Paintings : public QObject {
public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

void measureReplacing(desktop::RichTextEdit& rtb) {
    bench::print(
        {"5 MB copied out as text", bench::measure("%.1f ms", best(5, [&] { rtb.Text(); })), "", "", ""});
    // Turns of 92 characters with one hit each.
    rtb.setText(base::TextView(transcript()).substr(0, 10'220 * 92));
    rtb.viewport()->repaint();
    int hits = 0;
    Paintings paintings(*rtb.viewport());
    const double time = best(1, [&] {
        rtb.together([&] {
            for (; rtb.Find(u"sentence", std::nullopt, 0) >= 0; ++hits)
                rtb.setSelRTF(u"phrase");
        });
        QApplication::processEvents();
    });
    printRow(std::to_string(hits) + " hits in 1 MB replaced and shown", "%.0f ms", time, replacingGoal);
    printRow("Paintings of the window for them", "%.0f", paintings.count, 1);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const desktop::Application application(argc, argv);
    desktop::RichTextEdit rtb{base::CodePage(1252)};
    QTextEdit bare;
    for (QTextEdit* const control : {static_cast<QTextEdit*>(&rtb), &bare}) {
        control->resize(645, 229);
        control->show();
    }
    bare.setFont(rtb.font());
    bare.setUndoRedoEnabled(false);
    const base::Text text = transcript();
    measureMemory(text);
    measureOpening(rtb, bare, text);
    // Qt lays out long text in idle time; finish that before measuring.
    for (QTextEdit* const control : {static_cast<QTextEdit*>(&rtb), &bare})
        control->document()->documentLayout()->documentSize();
    measurePlaces(rtb);
    measureSearch(rtb, bare);
    measureTyping(rtb, bare);
    measureReplacing(rtb);
}
