// What the window of the waveform costs while it follows the playback of three hours, on a display.
#include "core_share.h"
#include "desktop/application.h"
#include "desktop/qt/conversions.h"
#include "desktop/services/qt_event_loop.h"
#include "desktop/windows/sound_window.h"
#include "sound/sound_view.h"
#include "table.h"

#include <QElapsedTimer>
#include <cmath>

namespace {

constexpr int watched = 4000; // ms
constexpr int columns = 3 * 3600 * 100;

std::shared_ptr<const sound::SoundMap> threeHours() {
    std::vector<sound::Peak> peaks;
    std::vector<sound::Phrase> phrases;
    for (int i = 0; i < columns; ++i) {
        const double most = 90 + 80 * std::sin(i / 7.0) * std::sin(i / 90.0);
        peaks.push_back({static_cast<std::uint8_t>(most), static_cast<std::uint8_t>(most / 2)});
        if (i % 250 == 0)
            phrases.push_back({i * 10, i * 10 + 2100});
    }
    auto map = std::make_shared<sound::SoundMap>();
    map->phrases = {std::move(phrases), {}};
    map->waveform = sound::Waveform(std::move(peaks));
    return map;
}

// Counts the frames of the waveform.
class Frames : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

int main(int argc, char* argv[]) {
    const desktop::Application application(argc, argv);
    desktop::QtEventLoop loop;
    const base::Text english = u"English.lng";
    lang::Words words(english, base::ProgramFolder(u"/nowhere"));
    sound::SoundWindow form;
    QElapsedTimer clock;
    bool plays = true;
    clock.start();
    sound::SoundView view(
        form,
        {[&] { return plays; },
         [&] { return plays ? 600 + static_cast<double>(clock.nsecsElapsed()) / 1e9 : 600; },
         [] { return columns / 100.0; }, [](double) {}},
        words, loop);
    desktop::SoundWindow window(form);
    Frames frames;
    window.findChild<QWidget*>(QStringLiteral("Wave"))->installEventFilter(&frames);
    view.open();
    view.show(sound::SoundView::State::Shown, threeHours(), {{601, 1}, {640, 2}});

    bench::coreShare(watched / 2); // until the position is at its place
    for (const bool isLarge : {false, true}) {
        if (isLarge) {
            form.width = desktop::twips(1200);
            form.height = desktop::twips(400);
            bench::coreShare(watched / 4);
        }
        plays = true;
        frames.count = 0;
        const double share = bench::coreShare(watched);
        const double perSec = frames.count * 1000.0 / watched;
        plays = false;
        bench::coreShare(watched / 4);
        const double rest = bench::coreShare(watched / 2);
        bench::print({isLarge ? "Waveform of 1200 x 400 pixels" : "Waveform following, share of a core",
                      bench::measure("%.1f %%", share), bench::measure("%.1f %%", rest),
                      bench::measure("%.0f frames/s", perSec), "< 3 %", share < 3 && perSec > 55});
        plays = true;
        bench::coreShare(watched / 4);
    }
}
