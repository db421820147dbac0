// A recording in a process of its own, which can be killed:
//   recording_process FOLDER BUFFERS CHANNELS BITS RATE FILE
// FOLDER takes the journal. It ends after so many buffers, or some seconds after they were due. At the end
// one line: buffers recorded, times that the device lost sound, how late the latest buffer came in ms.
#include "fakes/fake_desktop.h"
#include "portaudio_input.h"
#include "recorder/wave_in.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int patience = 3000; // ms

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 7)
        return 2;
    const auto number = [argv](int i) { return static_cast<int>(std::strtol(argv[i], nullptr, 10)); };
    const base::TextFiles files(base::CodePage(1252));
    recorder::RecordingJournal journal(files, base::fromUtf8(argv[1]) + u"/Recordings.ini");
    desktop::PortAudioInput device;
    fakes::FakeDialogs dialogs;
    recorder::WaveIn engine(device, dialogs, journal);
    engine.AggancioCattura(true);

    QElapsedTimer clock;
    qint64 buffers = 0;
    double latest = 0;
    const auto write = device.BufferDone;
    const double period = 1000.0 * 8192 * 8 / (number(3) * number(4) * number(5)); // ms
    double earliest = 1e9; // of the due times: the first buffer's own delay is no loss
    device.BufferDone = [&](platform::WaveBuffer& buffer) {
        ++buffers;
        const double behind = static_cast<double>(clock.elapsed()) - static_cast<double>(buffers) * period;
        earliest = std::min(earliest, behind);
        latest = std::max(latest, behind - earliest);
        write(buffer);
        if (buffers == number(2))
            QCoreApplication::quit();
    };
    clock.start();
    engine.AvviaCattura(static_cast<std::int16_t>(number(3)), static_cast<std::int16_t>(number(4)), number(5),
                        base::fromUtf8(argv[6]));
    std::puts("started");
    std::fflush(stdout);
    QTimer::singleShot(dialogs.boxes.empty() ? static_cast<int>(number(2) * period) + patience : 100,
                       &application, &QCoreApplication::quit);
    QCoreApplication::exec();
    const int lost = device.overflows();
    engine.AggancioCattura(false);
    engine.FermaCattura();
    std::printf("%lld buffers, %d losses, latest %.0f ms late\n", buffers, lost, latest);
    for (const fakes::FakeDialogs::Box& box : dialogs.boxes)
        std::printf("%s\n", base::toUtf8(box.text).c_str());
    return dialogs.boxes.empty() ? 0 : 1;
}
