// Records in a separate process, which a test can kill:
//   recording_process FOLDER BUFFERS CHANNELS BITS RATE FILE
// FOLDER holds the journal. Ends after BUFFERS buffers, or some seconds after they were due. At the end,
// prints one line: the recorded buffers, and how often the device lost sound.
#include "fakes/fake_desktop.h"
#include "portaudio_input.h"
#include "recorder/wave_in.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

constexpr int patience = 3000; // ms

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

    int buffers = 0;
    const auto write = device.BufferDone;
    const double period = 1000.0 * 8192 * 8 / (number(3) * number(4) * number(5)); // ms
    device.BufferDone = [&](platform::WaveBuffer& buffer) {
        write(buffer);
        if (++buffers == number(2))
            QCoreApplication::quit();
    };
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
    std::printf("%d buffers, %d losses\n", buffers, lost);
    for (const fakes::FakeDialogs::Box& box : dialogs.boxes)
        std::printf("%s\n", base::toUtf8(box.text).c_str());
    return dialogs.boxes.empty() ? 0 : 1;
}
