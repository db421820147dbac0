// A recording in a process of its own:
//   recording_process FOLDER BUFFERS CHANNELS BITS RATE FILE
// FOLDER takes the journal. It ends after so many buffers, or some seconds after they were due. At the end
// a line of the buffers recorded and the times that the device lost sound, and a line for each box.
#include "fakes/fake_desktop.h"
#include "portaudio_input.h"
#include "recorder/wave_in.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int patience = 3000; // ms

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int wanted = arguments.at(2).toInt();
    const int channels = arguments.at(3).toInt();
    const int bits = arguments.at(4).toInt();
    const int rate = arguments.at(5).toInt();
    const base::TextFiles files(base::CodePage(1252));
    recorder::RecordingJournal journal(files, base::fromUtf8(argv[1]) + u"/Recordings.ini");
    desktop::PortAudioInput device;
    fakes::FakeDialogs dialogs;
    recorder::WaveIn engine(device, dialogs, journal);
    engine.AggancioCattura(true);
    int buffers = 0;
    device.BufferDone = [&, write = device.BufferDone](platform::WaveBuffer& buffer) {
        write(buffer);
        if (++buffers == wanted)
            QCoreApplication::quit();
    };
    engine.AvviaCattura(static_cast<std::int16_t>(channels), static_cast<std::int16_t>(bits), rate,
                        base::fromUtf8(argv[6]));
    const int due = static_cast<int>(1000LL * wanted * 8192 * 8 / (channels * bits * rate)); // ms
    QTimer::singleShot(dialogs.boxes.empty() ? due + patience : 100, &QCoreApplication::quit);
    QCoreApplication::exec();
    const int lost = device.overflows();
    engine.AggancioCattura(false);
    engine.FermaCattura();
    std::printf("%d buffers, %d losses\n", buffers, lost);
    for (const fakes::FakeDialogs::Box& box : dialogs.boxes)
        std::printf("%s\n", base::toUtf8(box.text).c_str());
}
