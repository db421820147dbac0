// Cost of one refresh of the position display while a file is open, with the real window on the offscreen
// platform. The baseline is a bare label that gets the same text.
#include "app/program.h"
#include "desktop/application.h"
#include "still_desktop.h"
#include "table.h"

#include <QLabel>
#include <benchmark/benchmark.h>
#include <cmath>
#include <map>

namespace {

constexpr double length = 3 * 3600; // seconds
constexpr double tickGoal = 20;     // us
constexpr int repetitions = 9;
constexpr double repetitionTime = 0.1; // seconds

// Counts all paint events of the program.
class PaintCounter : public QObject {
public:
    PaintCounter() { qApp->installEventFilter(this); }
    int count() const { return count_; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++count_;
        return false;
    }

private:
    int count_ = 0;
};

// The results of one benchmark, one value per repetition.
struct Measured {
    std::vector<double> time = {};   // CPU us per round
    std::vector<double> paints = {}; // per round
};

class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            Measured& measured = byName[run.run_name.function_name];
            measured.time.push_back(run.GetAdjustedCPUTime());
            measured.paints.push_back(run.counters.at("paints"));
        }
    }

    std::map<std::string, Measured> byName;
};

// Measures `round` with all the painting that it causes.
template <typename Round>
void measure(const char* name, Round round) {
    benchmark::RegisterBenchmark(name,
                                 [round](benchmark::State& state) {
                                     QApplication::processEvents();
                                     const PaintCounter paints;
                                     for ([[maybe_unused]] const auto one : state) {
                                         round();
                                         QApplication::processEvents();
                                     }
                                     state.counters["paints"] = benchmark::Counter(
                                         paints.count(), benchmark::Counter::kAvgIterations);
                                 })
        ->Unit(benchmark::kMicrosecond)
        ->Repetitions(repetitions)
        ->MinTime(repetitionTime);
}

void printTime(const std::string& what, const Measured& program, const Measured& bare, bool hasGoal) {
    const double time = bench::median(program.time);
    bench::print({what, bench::measure("%.2f us", time), bench::measure("%.2f us", bench::median(bare.time)),
                  bench::measure("x %.2f", time / bench::median(bare.time)),
                  hasGoal ? bench::measure("< %.0f us", tickGoal) : "", time < tickGoal});
}

void printPaints(const std::string& what, const Measured& program, const Measured& bare, bool hasGoal) {
    const double paints = bench::median(program.paints);
    bench::print({what, bench::measure("%.0f", paints), bench::measure("%.0f", bench::median(bare.paints)),
                  "", hasGoal ? "0" : "", paints == 0});
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const desktop::Application application(argc, argv);
    bench::StillDesktop still;
    app::Program program(still);
    if (!program.Main(still.layMedia("Interview.mp3", length)))
        return 1;
    const auto move = [&still] { still.still.position = std::fmod(still.still.position + 1, length); };
    const auto tick = [&still] { still.form1->Timer1.Tick(); };

    QLabel label;
    label.setFixedSize(309, 16);
    label.show();
    int shown = 0;

    measure("tick", tick);
    measure("tick, new text", [&] {
        move();
        tick();
    });
    measure("label", [&] { label.setText(QStringLiteral("1:01:01 / 3:00:00")); });
    measure("label, new text", [&] { label.setText(QStringLiteral("1:01:%1 / 3:00:00").arg(++shown % 60)); });
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    auto& measured = collector.byName;
    printTime("Tick of the position, nothing changed", measured["tick"], measured["label"], true);
    printPaints("Paint events of that tick", measured["tick"], measured["label"], true);
    printTime("Tick of the position, new text, painted", measured["tick, new text"],
              measured["label, new text"], false);
    printPaints("Paint events of that tick", measured["tick, new text"], measured["label, new text"], false);
}
