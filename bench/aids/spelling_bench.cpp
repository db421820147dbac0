// What spelling costs: a key press in a text of 5 MB with and without it, a fast scroll through that text,
// and the check before delivery of it. The dictionary is that of the desktop. On the offscreen platform.
#include "aids/delivery_check.h"
#include "aids/spelling_marks.h"
#include "desktop/application.h"
#include "enchant_spelling.h"
#include "table.h"
#include "wired_editor.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <chrono>
#include <functional>
#include <random>

namespace {

constexpr int keyPresses = 200;
constexpr int scrolls = 300;
constexpr std::size_t units = 5'000'000;
constexpr double keyGoal = 0.2; // ms more for a key press
constexpr double frame = 16.7;  // ms

double now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(time).count();
}

// Words of a pronounceable kind, every tenth of them misspelled.
base::Text transcript() {
    const base::TextView words[] = {u"the",  u"recording", u"begins", u"with",      u"a",
                                    u"long", u"question",  u"about",  u"something", u"wrongg"};
    std::mt19937 random(1);
    base::Text text;
    while (text.size() < units) {
        text += u"[00:01:05] Speaker:";
        for (int word = 0; word < 18; ++word)
            text += u' ' + base::Text(words[random() % std::size(words)]);
        text += u".\r\n";
    }
    return text;
}

void press(QTextEdit& control, const char16_t* letter = u"x") {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QString::fromUtf16(letter));
    QApplication::sendEvent(&control, &down);
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier);
    QApplication::sendEvent(&control, &up);
    QApplication::processEvents();
}

void runLoop(double ms) {
    for (const double end = now() + ms; now() < end;)
        QApplication::processEvents();
}

struct Editor : bench::ShownText, bench::WiredEditor {
    Editor() : ShownText(900, 700), WiredEditor(rtb) {
        typing.Typed = [this] { marks.changed(); };
        rtb.setText(transcript());
        runLoop(3000); // the paragraphs are measured in idle time
    }
    void spell() {
        bool ready = false;
        spelling.use("en_US", [&](const base::Text&) { ready = true; });
        while (!ready)
            QApplication::processEvents();
        marks.show(aids::Script::of("en_US"));
        runLoop(300);
    }

    desktop::EnchantSpelling spelling;
    aids::OwnWords own{folder.files(u"Words.txt")};
    aids::Verdicts verdicts{spelling, own};
    aids::SpellingMarks marks{form, undoRedo, verdicts, loop};
};

void printKeys(Editor& with, Editor& without) {
    for (const auto& [where, place] : {std::pair{"start", 0.0}, {"middle", 0.5}, {"end", 1.0}}) {
        for (Editor* const editor : {&with, &without}) {
            editor->rtb.setSelStart(static_cast<std::int32_t>(place * editor->rtb.textLength()));
            press(editor->rtb);
            runLoop(200);
        }
        std::vector<double> times[2];
        for (int i = 0; i < keyPresses; ++i) {
            for (Editor* const editor : {&with, &without}) {
                const double start = now();
                press(editor->rtb, i % 7 == 6 ? u" " : u"x");
                times[editor == &with ? 0 : 1].push_back(now() - start);
            }
        }
        const double more = bench::median(times[0]) - bench::median(times[1]);
        bench::print({std::string("Key press until painted with spelling, ") + where + " of 5 MB",
                      bench::measure("%.2f ms", bench::median(times[0])),
                      bench::measure("%.2f ms", bench::median(times[1])), bench::measure("%+.2f ms", more),
                      bench::measure("<= %+.1f ms", keyGoal), more <= keyGoal});
    }
}

// Milliseconds for each of many pages.
std::vector<double> scroll(Editor& editor) {
    QScrollBar& bar = *editor.rtb.verticalScrollBar();
    std::vector<double> times;
    for (int i = 0; i < scrolls; ++i) {
        const double start = now();
        bar.setValue(bar.maximum() / scrolls * i);
        editor.rtb.viewport()->repaint();
        QApplication::processEvents();
        times.push_back(now() - start);
    }
    return times;
}

void printScroll(Editor& with, Editor& without) {
    scroll(with);
    scroll(without);
    const double spelled = bench::median(scroll(with));
    const double bare = bench::median(scroll(without));
    bench::print({"A page of 5 MB scrolled and painted with spelling", bench::measure("%.2f ms", spelled),
                  bench::measure("%.2f ms", bare), bench::measure("%+.2f ms", spelled - bare),
                  bench::measure("<= %.1f ms", frame), spelled <= frame});
}

void printDelivery(Editor& editor) {
    aids::DeliveryCheck check(editor.undoRedo, editor.verdicts, editor.marks, editor.loop);
    bool done = false;
    double worst = 0;
    check.Progressed = [&] { done = !check.runs(); };
    const double begin = now();
    check.start(u"[unclear,???");
    while (!done) {
        const double start = now();
        QApplication::processEvents();
        worst = std::max(worst, now() - start);
    }
    bench::print({"5 MB checked before delivery", bench::measure("%.0f ms", now() - begin), "",
                  bench::measure("worst slice %.1f ms", worst), bench::measure("<= %.1f ms", frame),
                  worst <= frame});
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const desktop::Application application(argc, argv);
    Editor with;
    Editor without;
    with.spell();
    printKeys(with, without);
    printScroll(with, without);
    printDelivery(with);
}
