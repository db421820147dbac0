// Measures the precision of timed dictation by its sound. The program repeatedly plays 3 s, steps 2 s back
// and pauses 1 s, through ten minutes of a variable-bit-rate mp3, while another thread keeps a core busy. The
// output of a sound server is compared with the decoded file.
//
//   dictation_bench [PAUSES]
#include "app/program.h"
#include "desktop/eventually.h"
#include "desktop/mpv/sound_server.h"
#include "desktop/services/qt_event_loop.h"
#include "fakes/fake_desktop.h"
#include "mpv_player.h"
#include "table.h"

#include <QFile>

#include <atomic>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int playPhase = 3000; // ms; the shortest phases that the program accepts
constexpr int pausePhase = 1000;
constexpr double stepBack = 2;  // s
constexpr double stepAhead = 9; // s, in every second pause, to cover the whole file
constexpr double silence = 0.4; // s; shorter than a pause
constexpr double inMs = 1000;

// The program in real time with a real player and a real sound server, but without windows.
class ListeningDesktop : public fakes::FakeDesktop {
public:
    ListeningDesktop() {
        laySettingsWith({{2, "100"}, {3, "0"}, {4, "9"}, {8, "1"}, {21, "3"}, {23, "1"}});
        // The dialog for seconds recognises its task by entries without a mnemonic.
        std::string bytes;
        for (int n = 0; n < 136; ++n)
            bytes += "123T" + std::to_string(n) + "\r\n";
        folder.write("Files/Lang/English.lng", bytes);
    }
    platform::EventLoop& eventLoop() override { return realTime_; }
    platform::MediaPlayer& mediaPlayer() override { return *player_; }

private:
    desktop::QtEventLoop realTime_;
    std::unique_ptr<platform::MediaPlayer> player_ =
        std::make_unique<desktop::MpvPlayer>(desktop::MpvOptions{"pulse"});
};

// Keeps one core busy as long as it exists.
class BusyCore {
public:
    ~BusyCore() {
        done_ = true;
        thread_.join();
    }

private:
    std::atomic<bool> done_ = false;
    std::thread thread_{[this] {
        while (!done_) {
        }
    }};
};

// The program's positions at one automatic pause and the following resume.
struct Pause {
    double told;  // position at the pause, s
    double asked; // position of the resume, s
};

// Runs the program through this many pauses; `late` receives the error of each phase's length, in ms.
std::vector<Pause> dictate(int pauses, std::vector<double>& late) {
    ListeningDesktop desktop;
    app::Program program(desktop);
    if (!program.Main(u"\"" + base::fromUtf8(TALK) + u"\""))
        return {};
    player::Form1& form = *desktop.form1;
    desktop.inForm4 = [&] {
        desktop.form4->Text1.text = u"1";
        desktop.form4->Command1.Click();
    };
    form.mnuTempoPause.Click();

    std::vector<Pause> met;
    bool over = false;
    Clock::time_point last;
    const auto tick = form.Timer5.Tick;
    form.Timer5.Tick = [&] {
        const auto now = Clock::now();
        const bool wasPlaying = form.isPlaying();
        const double heard = std::chrono::duration<double, std::milli>(now - last).count();
        if (!met.empty())
            late.push_back(heard - (wasPlaying ? playPhase : pausePhase));
        last = now;
        const double place = form.WMP1.currentPosition();
        if (!wasPlaying)
            met.back().asked = place;
        tick();
        if (!wasPlaying && static_cast<int>(met.size()) == pauses) {
            fakes::runLoop(500); // the last resume must be heard
            over = true;
        } else if (wasPlaying) {
            met.push_back({place, 0});
            if (met.size() % 2 == 0)
                form.cmdAvanz.Click();
        }
    };
    fakes::eventually([&] { return over; }, (pauses + 2) * (playPhase + pausePhase) + 10000);
    form.mnuStop.Click();
    return met;
}

double worst(const std::vector<double>& errors) {
    double most = 0;
    for (const double error : errors)
        most = std::isnan(error) ? HUGE_VAL : std::max(most, std::abs(error));
    return most;
}

// The change of the values from the first quarter to the last. Uses medians, because a busy machine is
// sometimes late.
double drift(const std::vector<double>& values) {
    const auto quarter = static_cast<std::ptrdiff_t>((values.size() + 3) / 4);
    return bench::median({values.end() - quarter, values.end()}) -
           bench::median({values.begin(), values.begin() + quarter});
}

bench::Row row(const std::string& what, const std::vector<double>& errors, double goal) {
    const double most = worst(errors);
    return {what,
            bench::measure("%.1f ms", most),
            "",
            bench::measure("med %+.1f", bench::median(errors)),
            bench::measure("<= %.0f ms", goal),
            most <= goal};
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // required by the engine
    const int pauses = argc > 1 ? std::atoi(argv[1]) : 100;
    listening::SoundServer server;
    QFile decoded(QStringLiteral(DECODED));
    if (!server.running() || !decoded.open(QIODevice::ReadOnly))
        return 1;
    const listening::Samples source = listening::samplesOf(decoded.readAll().mid(44));
    server.heard();

    std::vector<double> late;
    std::vector<Pause> met;
    {
        const BusyCore busy;
        met = dictate(pauses, late);
    }
    const listening::Samples heard = server.heard();
    const std::vector<listening::Sound> sounds = listening::soundsIn(heard, silence);
    if (static_cast<int>(met.size()) != pauses || static_cast<int>(sounds.size()) != pauses + 1) {
        std::fprintf(stderr, "%zu pauses were met and %zu sounds heard, of %d\n", met.size(), sounds.size(),
                     pauses);
        return 1;
    }

    std::vector<double> begins; // ms from the requested position to the first sound after a resume
    std::vector<double> ends;   // ms from the reported position to the last sound before a pause
    for (std::size_t i = 0; i < met.size(); ++i) {
        const double begin = listening::placeIn(source, heard, sounds[i + 1].begin, met[i].asked);
        const double end = listening::placeBehind(source, heard, sounds[i].end, met[i].told);
        begins.push_back((begin - met[i].asked) * inMs);
        ends.push_back((end - met[i].told) * inMs);
    }
    const std::string count = std::to_string(pauses) + " automatic pauses, ";
    bench::print(row(count + "first sound of the resume", begins, 20));
    bench::print(row(count + "place told and heard", ends, 60));
    const double moved = drift(ends);
    bench::print({count + "drift of the place told", bench::measure("%.1f ms", moved), "", "", "<= 5 ms",
                  std::abs(moved) <= 5});
    bench::print(row(count + "length of a phase, one core busy", late, 30));
}
