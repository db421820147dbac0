// CPU use of the recorder's meters, clock and counter while recording, on a real display in real time.
#include "core_share.h"
#include "desktop/application.h"
#include "desktop/services/qt_event_loop.h"
#include "desktop/windows/frm_audio_rec_window.h"
#include "recorder/recorder_window.h"
#include "still_desktop.h"
#include "table.h"

#include <QTimer>

namespace {

constexpr int watched = 6000; // ms
constexpr int period = 46;    // ms: the length of a buffer at 44,100 samples a second and two channels

} // namespace

int main(int argc, char* argv[]) {
    const desktop::Application application(argc, argv);
    bench::StillDesktop still;
    const base::ProgramFolder folder(still.systemPort.folder);
    const base::TextFiles files(still.codePage());
    lang::LanguageTable Lingua(files, folder);
    Lingua.FileLingua = u"English.lng";
    Lingua.load();
    player::Form1 form1(still.loop, still.still, Lingua, folder);
    form1.screen.width = form1.screen.height = 15'000;

    desktop::QtEventLoop loop;
    fakes::FakeWaveInput device;
    // Varies the volume, so that the meters move.
    QTimer sound;
    int loudness = 0;
    sound.callOnTimeout([&] { device.fill(loudness = (loudness + 37) % 200); });
    sound.start(std::chrono::milliseconds(period));

    recorder::RecordingJournal journal(files, still.folder.text("Recordings.ini"));
    recorder::WaveIn engine(device, still.dialogPort, journal);
    player::Settings settings;
    recorder::FrmAudioRec form(loop, Lingua, folder);
    recorder::RecorderWindow recorder(form, form1, engine, still.dialogPort, settings);
    const desktop::FrmAudioRecWindow window(form);
    recorder.mnuRegistra_Click();
    still.dialogPort.choices = {still.folder.text("a.wav")};
    form.btnStart.Click();
    bench::coreShare(watched); // warm-up: the window appears
    const double shown = bench::coreShare(watched);
    form.Timer.setEnabled(false);
    const double bare = bench::coreShare(watched);
    bench::print({"Recorder's meters, clock and counter, share of a core", bench::measure("%.2f %%", shown),
                  bench::measure("%.2f %%", bare), bench::measure("%+.2f %%", shown - bare), "< 2 %",
                  shown - bare < 2});
    recorder.Form_Unload();
}
