// How many frames of a 720p video are lost when drawn without a graphics card, at original size.
#include "mpv_player.h"
#include "table.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace {

constexpr double seconds = 20; // length of the video
constexpr int framesPerSecond = 30;

} // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    QWindow window;
    window.setGeometry(0, 0, 1280, 720);
    window.show();
    desktop::MpvPlayer player({"null"});
    QTimer::singleShot(500, &window, [&] {
        player.showPicturesIn(window.winId());
        player.setURL(u"" MEDIA_FILE);
    });
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        if (player.currentPosition() > seconds - 1)
            QGuiApplication::quit();
    });
    watch.start(100);
    QTimer::singleShot(60000, &window, [] { QGuiApplication::exit(1); });
    if (QGuiApplication::exec() != 0 || !player.pictureSize().exists())
        return 1;
    const double lost = 100.0 * static_cast<double>(player.lostFrames()) / ((seconds - 1) * framesPerSecond);
    bench::print({"Frames lost of 19 s of 720p video at 30 a second, no card",
                  bench::measure("%.2f %%", lost), "", "", "< 1 %", lost < 1});
}
