// Cost of a key press in the editor with everything it triggers, compared with a bare text control with the
// same text, and the memory of the undo records. On the offscreen platform.
#include "aids/abbreviations.h"
#include "aids/completion.h"
#include "aids/expansion.h"
#include "aids/typed_signs.h"
#include "aids/worklog.h"
#include "desktop/application.h"
#include "desktop/qt/conversions.h"
#include "editor/editor_keys.h"
#include "editor/find_replace.h"
#include "editor/frm_find.h"
#include "table.h"
#include "wired_editor.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <chrono>
#include <functional>
#include <malloc.h>
#include <random>

namespace {

constexpr int keyPresses = 60;
constexpr double ratioGoal = 1.1;       // ratio to the bare control
constexpr double medianGoal = 10;       // us
constexpr double tailGoal = 50;         // us
constexpr double replaceAllGoal = 1000; // ms
constexpr double megabyte = 1'000'000;

base::Text transcript(std::size_t letters) {
    base::Text text;
    for (int turn = 0; text.size() < letters; ++turn)
        text += u"Speaker " + base::fromUtf8(std::to_string(turn % 5)) +
                u" [00:01:05]: what was said in this turn, Привет, is a sentence or two with a pause.\r\n";
    return text;
}

double microseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

double percentile99(std::vector<double> values) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(values.size() * 99 / 100);
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

void press(QTextEdit& control) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(&control, &down);
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier);
    QApplication::sendEvent(&control, &up);
    QApplication::processEvents();
}

// The editor wired as in the program, with the typing timer on.
struct Editor : bench::WiredEditor {
    explicit Editor(desktop::RichTextEdit& rtb) : WiredEditor(rtb) { form1.mnuNoPlayOnWrite.checked = true; }

    editor::Toolbar toolbar{form, document, desktop.systemPort, desktop.dialogPort};
    editor::EditorKeys keys{form, toolbar, form1};
};

void measureKeys(const std::string& size, QTextEdit& own, QTextEdit& bare) {
    for (const auto& [where, place] : {std::pair{"start", 0.0}, {"middle", 0.5}, {"end", 1.0}}) {
        for (QTextEdit* const control : {&own, &bare}) {
            QTextCursor cursor = control->textCursor();
            cursor.setPosition(static_cast<int>(place * (control->document()->characterCount() - 1)));
            control->setTextCursor(cursor);
            press(*control);
        }
        std::vector<double> ownTimes;
        std::vector<double> bareTimes;
        for (int i = 0; i < keyPresses; ++i) {
            ownTimes.push_back(microseconds([&] { press(own); }));
            bareTimes.push_back(microseconds([&] { press(bare); }));
        }
        const double ratio = bench::median(ownTimes) / bench::median(bareTimes);
        bench::print({"Key press until painted, " + std::string(where) + " of " + size,
                      bench::measure("%.2f ms", bench::median(ownTimes) / 1000),
                      bench::measure("%.2f ms", bench::median(bareTimes) / 1000),
                      bench::measure("x %.2f", ratio), bench::measure("<= x %.1f", ratioGoal),
                      ratio <= ratioGoal});
    }
}

// The goals are for a text of 1 MB; longer texts are reported without one.
void printTimes(const std::string& what, const std::vector<double>& times, bool withGoal) {
    const auto print = [&](const char* name, double value, double goal) {
        bench::print({what + ", " + name, bench::measure("%.1f us", value), "", "",
                      withGoal ? bench::measure("<= %.0f us", goal) : "", value <= goal});
    };
    print("median", bench::median(times), medianGoal);
    print("p99", percentile99(times), tailGoal);
}

// Time to record a typed character, without Qt's own work, which evicts the records from the CPU caches
// between two measurements.
void measureRecord(const std::string& size, desktop::RichTextEdit& rtb, editor::UndoRedo& undoRedo) {
    std::vector<double> times;
    const auto handler = rtb.Change;
    rtb.Change = [&] { times.push_back(microseconds([&] { undoRedo.record(); })); };
    std::mt19937 random(1);
    for (int i = 0; i < 1000; ++i) {
        rtb.setSelStart(static_cast<std::int32_t>(random() % static_cast<unsigned>(rtb.textLength())));
        rtb.setSelText(u"x");
    }
    rtb.Change = handler;
    printTimes("A change recorded in " + size, times, rtb.textLength() < 2 * megabyte);
}

void measureUndo(const std::string& size, Editor& editor, QTextEdit& bare) {
    struct Row {
        const char* what;
        std::function<void()> own;
        std::function<void()> bare;
    };
    const Row rows[] = {{"undone", [&] { editor.form.mnuAnnulla.Click(); }, [&] { bare.undo(); }},
                        {"redone", [&] { editor.form.mnuRipeti.Click(); }, [&] { bare.redo(); }}};
    for (const Row& row : rows) {
        std::vector<double> own;
        std::vector<double> baseline;
        for (int i = 0; i < 200; ++i) {
            own.push_back(microseconds(row.own));
            baseline.push_back(microseconds(row.bare));
        }
        bench::print({std::string("A letter ") + row.what + " in " + size,
                      bench::measure("%.2f ms", bench::median(own) / 1000),
                      bench::measure("%.2f ms", bench::median(baseline) / 1000),
                      bench::measure("x %.2f", bench::median(own) / bench::median(baseline)), ""});
    }
}

void measureTyping(const std::string& size, std::size_t letters) {
    desktop::RichTextEdit rtb{base::CodePage(1252)};
    Editor editor(rtb);
    QTextEdit bare;
    const base::Text text = transcript(letters);
    rtb.setText(text);
    bare.setFont(rtb.font());
    bare.setPlainText(desktop::qstring(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    for (QTextEdit* const control : {static_cast<QTextEdit*>(&rtb), &bare}) {
        control->resize(645, 229);
        control->show();
        // Qt lays out long text in idle time; finish that before measuring.
        control->document()->documentLayout()->documentSize();
        QApplication::processEvents();
    }
    static_cast<desktop::EditorLayout&>(*rtb.document()->documentLayout())
        .measureFor(std::chrono::minutes(1));
    measureKeys(size, rtb, bare);
    measureRecord(size, rtb, editor.undoRedo);
    std::mt19937 random(1);
    for (int i = 0; i < 250; ++i) {
        QTextCursor cursor(bare.document());
        cursor.setPosition(
            static_cast<int>(random() % static_cast<unsigned>(bare.document()->characterCount())));
        cursor.insertText(QStringLiteral("x"));
    }
    measureUndo(size, editor, bare);
}

// A text that only reports changes, so that just the undo records use memory.
class CountedText : public fakes::FakeRichText {
public:
    platform::TextChange change;

    platform::TextChange takeChange() override { return change; }
    std::int32_t SelStart() const override { return change.position + 1; }
};

double heapBytes() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

void measureMemory(int changes, double goal) {
    constexpr std::size_t letters = 200'000;
    const double before = heapBytes();
    CountedText text;
    editor::UndoRedo undoRedo(text);
    text.change = {0, 0, transcript(letters)};
    undoRedo.record();
    std::mt19937 random(1);
    const double withText = heapBytes() - before;
    for (int i = 0; i < changes; ++i) {
        text.change = {static_cast<std::int32_t>(random() % letters), 0, u"x"};
        undoRedo.record();
    }
    const double taken = heapBytes() - before - withText;
    const double whole = undoRedo.ListaUndo().back().Text.length() * 2.0 * changes;
    bench::print({std::to_string(changes) + " changes spread over 200 KB, memory of the records",
                  bench::measure("%.0f MB", taken / megabyte),
                  bench::measure("%.0f GB", whole / megabyte / 1000), "", bench::measure("<= %.0f MB", goal),
                  taken / megabyte <= goal});
}

// The editor, shown with a text.
struct ShownEditor : bench::ShownText {
    explicit ShownEditor(const base::Text& text) : ShownText(645, 229), editor(rtb) {
        rtb.setText(text);
        rtb.viewport()->repaint();
    }

    Editor editor;
};

// All that helps while the user types, wired as in the program, with 5,000 abbreviations.
struct Aids {
    explicit Aids(Editor& of) : editor(of) {
        std::string bytes;
        for (int i = 0; i < 5000; ++i)
            bytes +=
                "ab" + std::to_string(i) + " = a text that is longer, number " + std::to_string(i) + "\n";
        known = aids::Abbreviations(bytes);
        options = {.expand = true, .complete = true, .quotes = true, .dashes = true};
    }

    // On or off: what the program does then at each change and key.
    void setOn(bool on) {
        options.complete = on;
        completion.apply();
        for (int i = 0; on && i < 200; ++i)
            completion.readOn();
        editor.form.RTB.Typed = [this, on](base::TextView inserted) {
            if (!on)
                return;
            own += microseconds([&] {
                expansion.typed(inserted, known);
                signs.typed(inserted);
                completion.typed(inserted);
            });
        };
        editor.undoRedo.Changed = nullptr;
        if (on)
            editor.undoRedo.Changed = [this](const auto& before, const auto& after, const auto& change) {
                own += microseconds([&] {
                    completion.changed(before, after, change);
                    worklog.typed(before, after, change);
                });
            };
    }

    Editor& editor;
    aids::Abbreviations known;
    aids::TypingOptions options;
    const base::Text english = u"English.lng";
    lang::Words words{english, editor.folder};
    aids::Expansion expansion{editor.form, editor.undoRedo, options};
    aids::TypedSigns signs{editor.form, editor.undoRedo, options, words};
    aids::Completion completion{editor.form, editor.undoRedo, options, editor.loop};
    aids::WorklogFile file{editor.folder.files(u"Worklog.csv"), editor.desktop.diskPort};
    aids::Worklog worklog{file, editor.loop};
    double own = 0; // us that they took since it was set to 0
};

// Types sentences at the end of a text, with all aids on and with all off, key by key in turn.
void measureAids(const std::string& size, std::size_t letters) {
    constexpr double aidsGoal = 50; // us
    ShownEditor shown(transcript(letters));
    Aids aids(shown.editor);
    const base::Text typed = u"so was 12 gesagt -- \"conversation\", and the transcription of sentences. ";
    std::vector<double> own;
    std::vector<double> times[2];
    std::vector<double> replacing; // by keys that put something else in the place of what is typed
    const auto press = [&](char16_t letter) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QString(QChar(letter)));
        QApplication::sendEvent(&shown.rtb, &down);
        QApplication::processEvents();
    };
    for (int round = 0; round < 8; ++round) {
        const bool on = round % 2 == 0;
        aids.setOn(on);
        shown.rtb.setSelStart(shown.rtb.textLength());
        for (const char16_t letter : typed) {
            aids.own = 0;
            const auto records = shown.editor.undoRedo.ListaUndo().size();
            const double time = microseconds([&] { press(letter); });
            const bool replaces = shown.editor.undoRedo.ListaUndo().size() > records + 1;
            (replaces ? replacing : times[on ? 1 : 0]).push_back(time);
            if (on && !replaces)
                own.push_back(aids.own);
        }
    }
    aids.setOn(true);
    for (int i = 0; i < 40; ++i) {
        for (const char16_t letter : base::Text(u"ab77"))
            press(letter);
        replacing.push_back(microseconds([&] { press(u' '); }));
    }
    bench::print({"Key press until painted, end of " + size + ", all aids on / off",
                  bench::measure("%.2f ms", bench::median(times[1]) / 1000),
                  bench::measure("%.2f ms", bench::median(times[0]) / 1000),
                  bench::measure("x %.2f", bench::median(times[1]) / bench::median(times[0])), ""});
    bench::print({"The same for a key that replaces what is typed, end of " + size,
                  bench::measure("%.2f ms", bench::median(replacing) / 1000), "", "", ""});
    const auto print = [&](const char* name, double value) {
        bench::print(
            {std::string("Aids with 5,000 abbreviations, their part of a key, ") + name + ", " + size,
             bench::measure("%.1f us", value), "", "", bench::measure("<= %.0f us", aidsGoal),
             value <= aidsGoal});
    };
    print("median", bench::median(own));
    print("p99", percentile99(own));
}

// Time until pasted text is painted, including its undo record.
void measurePaste(const std::string& what, const base::Text& pasted, double goal) {
    std::vector<double> times;
    for (int i = 0; i < 3; ++i) {
        ShownEditor shown(u"before\r\nbehind");
        shown.rtb.setSelStart(7);
        times.push_back(microseconds([&] {
            shown.rtb.setSelRTF(pasted);
            QApplication::processEvents();
        }));
    }
    const double time = bench::median(times) / 1000;
    bench::print({what + " pasted until painted", bench::measure("%.0f ms", time), "", "",
                  bench::measure("<= %.0f ms", goal), time <= goal});
}

// Replace All as in the program, with an undo record for each hit.
void measureReplaceAll(const std::string& size, std::size_t letters) {
    ShownEditor shown(transcript(letters));
    Editor& editor = shown.editor;
    editor::FrmFind frmFind(editor.loop);
    editor::FindReplace findReplace(frmFind, editor.form, editor.desktop.dialogPort);
    frmFind.cboFind.text = u"sentence";
    frmFind.cboReplace.text = u"phrase";
    const auto before = editor.undoRedo.ListaUndo().size();
    const double time = microseconds([&] {
        findReplace.cmdReplaceAll_Click();
        QApplication::processEvents();
    });
    const auto records = editor.undoRedo.ListaUndo().size() - before;
    bench::print({"Replace All of " + std::to_string(records) + " hits in " + size + " with their records",
                  bench::measure("%.0f ms", time / 1000), "", "",
                  bench::measure("<= %.0f ms", replaceAllGoal), time / 1000 <= replaceAllGoal});
}

base::Text asRtf(const base::Text& text) {
    return u"{\\rtf1\\ansi {\\b bold} " + base::replaced(text, u"\r\n", u"\\par ") + u"}";
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const desktop::Application application(argc, argv);
    if (argc > 1 && std::string_view(argv[1]) == "aids") {
        measureAids("1 MB", 1'000'000);
        measureAids("5 MB", 5'000'000);
        return 0;
    }
    measureTyping("200 KB", 200'000);
    measureTyping("1 MB", 1'000'000);
    measureTyping("5 MB", 5'000'000);
    measureAids("1 MB", 1'000'000);
    measureAids("5 MB", 5'000'000);
    measureReplaceAll("1 MB", 945'000);
    measureReplaceAll("5 MB", 5'760'000);
    measurePaste("5 MB", transcript(5'000'000), 600);
    measurePaste("5 MB of RTF", asRtf(transcript(5'000'000)), 600);
    measurePaste("20 MB", transcript(20'000'000), 2500);
    measureMemory(100'000, 60);
    measureMemory(1'000'000, 600);
}
