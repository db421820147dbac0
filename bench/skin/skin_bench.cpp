// Cost of mouse moves, the volume thumb and a language change in the real player window, on the offscreen
// platform.
#include "app/program.h"
#include "desktop/application.h"
#include "still_desktop.h"
#include "table.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <ctime>

namespace {

constexpr int movesPerSecond = 125; // of a common mouse
constexpr int crossings = 200;
constexpr int rounds = 21;
constexpr double frame = 1000.0 / 60; // ms

double cpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void moveMouse(QWidget& window, QPoint place) {
    QWidget* const under = window.childAt(place) ? window.childAt(place) : &window;
    const QPointF local = under->mapFrom(&window, place);
    QMouseEvent event(QEvent::MouseMove, local, window.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(under, &event);
    QApplication::processEvents();
}

// CPU seconds per mouse move across all buttons, from left to right and back, including painting.
double crossing(QWidget& window, int y) {
    const double before = cpuSeconds();
    int moves = 0;
    for (int i = 0; i < crossings; ++i) {
        for (int x = 10; x < window.width() - 10; x += 5, ++moves)
            moveMouse(window, {i % 2 == 0 ? x : window.width() - x, y});
    }
    return (cpuSeconds() - before) / moves;
}

// The median time in ms from calling `act` until all changes are painted.
template <typename Act>
double untilPainted(Act act) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        act(i);
        QApplication::processEvents();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return bench::median(times);
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const desktop::Application application(argc, argv);
    bench::StillDesktop still;
    still.folder.write("Files/Quillmere.ini", "English.lng\r\n80\r\n561\r\n5\r\n2\r\n");
    app::Program program(still);
    if (!program.Main(u"\"" + still.layMedia("Interview.mp3", 60) + u"\""))
        return 1;
    player::Form1& form = *still.form1;
    QWidget& window = still.window();

    int pictures = 0;
    base::Text shown;
    form.cmdStop.observe(
        [&] { pictures += std::exchange(shown, form.cmdStop.picture.get()) != form.cmdStop.picture.get(); });
    const double move = crossing(window, window.height() - 66);
    QWidget bare;
    bare.setMouseTracking(true);
    bare.resize(window.size());
    bare.show();
    const double bareMove = crossing(bare, bare.height() - 66);
    const double share = move * movesPerSecond * 100;
    bench::print({"Mouse across the buttons, share of a core", bench::measure("%.2f %%", share),
                  bench::measure("%.2f %%", bareMove * movesPerSecond * 100),
                  bench::measure("x %.1f", move / bareMove), "< 1 %", share < 1});
    bench::print({"Pictures that a button loads in one crossing",
                  bench::measure("%.1f", double(pictures) / crossings), "", "", "<= 2",
                  pictures <= 2 * crossings + 1});

    const double language = untilPainted([&](int i) {
        still.dialogPort.choices = {i % 2 == 0 ? u"/Lang/Russian.lng" : u"/Lang/Hungarian.lng"};
        form.mnuLingua.Click();
    });
    bench::print({"Change of language until painted", bench::measure("%.1f ms", language), "", "", "< 50 ms",
                  language < 50});

    form.Image1.MouseMove({0, 180, 90});
    form.Image1.MouseDown({1, 180, 90});
    const double thumb = untilPainted([&](int i) {
        form.Image1.MouseMove({1, 180, i % 2 == 0 ? 300.0 : -150.0});
        form.Timer2.Tick();
    });
    bench::print({"Volume thumb, from its tick until painted", bench::measure("%.2f ms", thumb), "", "",
                  bench::measure("< %.1f ms", frame), thumb < frame});
}
