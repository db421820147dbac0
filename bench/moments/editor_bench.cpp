// What the moments of words cost in the editor with a text of 100,000 words: saving and opening it, a change
// with its record, stamps at every paragraph, and following the sound on a real display in real time. The
// baseline is the same text without moments.
#include "core_share.h"
#include "desktop/application.h"
#include "editor/follow_sound.h"
#include "editor/stamp_commands.h"
#include "moments/layer.h"
#include "table.h"
#include "wired_editor.h"

#include <QEvent>
#include <QScrollBar>
#include <chrono>
#include <random>

namespace {

constexpr int words = 100'000;
constexpr int wordsOfParagraph = 20;
constexpr int wordMs = 307; // from one word to the next; no multiple of a timer's period
constexpr int rounds = 5;
constexpr int changes = 3000;
constexpr int watched = 10'000;     // ms
constexpr double moreGoal = 100;    // ms of saving and opening, more than without moments
constexpr double stampsGoal = 1000; // ms
constexpr double delayGoal = 30;    // ms from a word to its mark

double now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(time).count();
}

template <typename Work>
double milliseconds(Work&& work) {
    const double start = now();
    work();
    return now() - start;
}

base::Text transcript() {
    base::Text text;
    for (int word = 0; word < words; ++word)
        text += (word % wordsOfParagraph == 0 ? u"\r\n" : u" ") +
                base::fromUtf8(std::to_string(word)).substr(0, 2 + word % 4);
    return text.substr(2);
}

moments::Layer layerOf(base::TextView text) {
    moments::Layer layer{u"Interview.mp3", words * wordMs, {}};
    std::int32_t start = 0;
    bool inWord = false;
    for (const char16_t unit : text) {
        const bool blank = unit <= u' ';
        start += !blank && !inWord ? wordMs : 0;
        layer.timed.runs.push_back(
            {1, blank ? std::nullopt : std::optional(moments::Moment{start, start + 250, 90})});
        inWord = !blank;
    }
    return layer;
}

struct Editor : bench::ShownText, bench::WiredEditor {
    Editor() : ShownText(700, 500), WiredEditor(rtb) {}

    // Opens the text with these moments beside it, or without any.
    void fill(const base::Text& text, const std::string& beside) {
        rtb.setText({});
        rtb.insert(text, beside);
    }

    editor::SoundOptions options;
    editor::WordSound sound{form, undoRedo, options};
    editor::FollowSound follow{form, sound, options, loop};
    editor::StampCommands stamps{form, undoRedo, options};
};

// Counts the paint events of a widget, and tells when they come.
class Paints : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }

    int count = 0;
    std::function<void()> Painted = [] {};

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
            Painted();
        }
        return false;
    }
};

void printFiles(Editor& with, Editor& without) {
    std::vector<double> saved[2];
    std::vector<double> opened[2];
    for (int round = 0; round < rounds; ++round) {
        for (Editor* const editor : {&with, &without}) {
            const base::Text file = editor->desktop.folder.text("text.rtf");
            const std::size_t index = editor == &with ? 0 : 1;
            saved[index].push_back(milliseconds([&] { editor->rtb.SaveFile(file); }));
            opened[index].push_back(milliseconds([&] { editor->rtb.LoadFile(file); }));
        }
    }
    for (const auto& [what, times] : {std::pair{"saved", saved}, std::pair{"opened", opened}}) {
        const double more = bench::median(times[0]) - bench::median(times[1]);
        bench::print({std::string("100,000 words with moments ") + what,
                      bench::measure("%.0f ms", bench::median(times[0])),
                      bench::measure("%.0f ms", bench::median(times[1])), bench::measure("%+.0f ms", more),
                      bench::measure("< %+.0f ms", moreGoal), more < moreGoal});
    }
}

// Microseconds of a change with its record, somewhere in the text.
double change(Editor& editor) {
    std::mt19937 random(1);
    std::vector<double> times;
    const std::function<void()> routine = editor.rtb.Change;
    editor.rtb.Change = [&] { times.push_back(1000 * milliseconds(routine)); };
    editor.rtb.together([&] {
        for (int i = 0; i < changes; ++i) {
            editor.rtb.setSelStart(static_cast<std::int32_t>(random() % 400'000));
            editor.rtb.setSelText(u"x");
        }
    });
    editor.rtb.Change = routine;
    return bench::median(times);
}

void printStamps(Editor& editor) {
    QApplication::processEvents();
    Paints paints(*editor.rtb.viewport());
    const auto& menu = editor.stamps.commands().front()->items;
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"5,000 stamps inserted, painted", [&] { menu[0]->Click(); }},
        {"5,000 stamps undone, painted", [&] { editor.undoRedo.EseguiUndo(); }},
        {"5,000 stamps redone, painted", [&] { editor.undoRedo.EseguiRedo(); }},
        {"5,000 stamps removed, painted", [&] { menu[4]->Click(); }},
    };
    for (const auto& [what, command] : rows) {
        paints.count = 0;
        const double time = milliseconds([&, &run = command] {
            run();
            QApplication::processEvents();
        });
        bench::print({what, bench::measure("%.0f ms", time), "", bench::measure("%.0f paints", paints.count),
                      bench::measure("< %.0f ms", stampsGoal), time < stampsGoal});
    }
}

void printFollowing(Editor& editor) {
    const double begin = now() - 10'000'000; // in the middle of the text
    editor.sound.Heard = [&] { return std::optional(static_cast<std::int32_t>(now() - begin)); };
    editor.follow.Plays = [] { return true; };
    bench::coreShare(watched); // the paragraphs are measured in idle time
    const double still = bench::coreShare(watched);
    std::vector<double> delays;
    std::int32_t last = -1;
    Paints paints(*editor.rtb.viewport());
    paints.Painted = [&] {
        const auto marks = editor.rtb.MarksIn(0, editor.rtb.textLength());
        if (marks.empty() || marks.front().position == last)
            return;
        last = marks.front().position;
        delays.push_back(now() - begin - editor.undoRedo.moments().at(last)->start);
    };
    editor.follow.commands().front()->Click();
    const double followed = bench::coreShare(watched);
    const double more = followed - still;
    bench::print({"Following the sound in 100,000 words, share of a core",
                  bench::measure("%.2f %%", followed), bench::measure("%.2f %%", still),
                  bench::measure("%+.2f %%", more), "< 1 %", more < 1});
    delays.erase(delays.begin()); // the first word had begun before
    const double worst = *std::max_element(delays.begin(), delays.end());
    bench::print({"From a word to its mark, median of " + std::to_string(delays.size()),
                  bench::measure("%.0f ms", bench::median(delays)), "", bench::measure("worst %.0f", worst),
                  bench::measure("< %.0f ms", delayGoal), worst < delayGoal});
}

} // namespace

int main(int argc, char* argv[]) {
    const desktop::Application application(argc, argv);
    const base::Text text = transcript();
    Editor with;
    Editor without;
    with.fill(text, moments::pack(layerOf(text), text));
    without.fill(text, {});
    printFiles(with, without);
    const double timed = change(with);
    const double bare = change(without);
    bench::print({"A change recorded in 100,000 words with moments", bench::measure("%.1f us", timed),
                  bench::measure("%.1f us", bare), bench::measure("%+.1f us", timed - bare), ""});
    without.rtb.hide();
    with.fill(text, moments::pack(layerOf(text), text));
    printStamps(with);
    printFollowing(with);
}
