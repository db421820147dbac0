#include "recorder/recorder_window.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"
#include "platform/file_filter.h"

#include <algorithm>
#include <string>

namespace recorder {

namespace {

// ms. Nothing is updated more often than every 50 ms; a thousand ticks a second would cost three times as
// much CPU time as the recording itself.
constexpr int tickPeriod = 10;
constexpr double metersEvery = 0.05; // seconds
constexpr double blinkEvery = 0.5;   // seconds
constexpr double meterMargin = 110;  // twips by which a meter stays below its level
constexpr double gap = 30;           // twips between two windows
constexpr controls::Color red = controls::rgb(0xFF, 0, 0);
constexpr controls::Color green = controls::rgb(0, 0x80, 0);
constexpr controls::Color blue = controls::rgb(0, 0, 0xFF);

// A number with at least two digits.
base::Text twoDigits(std::int64_t number) {
    const base::Text digits = base::numberText(static_cast<double>(number));
    return digits.size() < 2 ? u'0' + digits : digits;
}

int number(const controls::ComboBox& box) {
    return static_cast<int>(base::val(box.text.get()));
}

} // namespace

base::Text FormatTime(std::int64_t secondi, bool millisecondi) {
    if (millisecondi)
        secondi /= 1000;
    return twoDigits(secondi / 3600) + u':' + twoDigits(secondi / 60 % 60) + u':' + twoDigits(secondi % 60);
}

RecorderWindow::RecorderWindow(FrmAudioRec& form, player::Form1& player, WaveIn& engine,
                               platform::Dialogs& dialogs, player::Settings& settings)
    : form_(form), player_(player), engine_(engine), dialogs_(dialogs), settings_(settings) {
    form_.btnStart.Click = [this] { btnStart_Click(); };
    form_.btnStop.Click = [this] { btnStop_Click(); };
    form_.Timer.Tick = [this] { Timer_Timer(); };
    form_.Unload = [this] {
        Form_Unload();
        return false;
    };
}

void RecorderWindow::mnuRegistra_Click() {
    if (player_.isPlaying() && player_.mnuStop.Click)
        player_.mnuStop.Click();
    if (player_.HoverRec == 1) {
        player_.HoverRec = 0;
        player_.load(player_.cmdRec, u"rec.jpg");
    }
    load();
    if (!form_.visible)
        placeBesidePlayer();
    form_.windowState = controls::WindowState::Normal;
    form_.visible = true;
    enableTicks();
    form_.setFocus();
    form_.btnStart.setFocus();
}

void RecorderWindow::load() {
    if (loaded_)
        return;
    loaded_ = true;
    Form_Load();
}

void RecorderWindow::Form_Load() {
    const lang::LanguageTable& Lingua = form_.Lingua;
    form_.caption = Lingua(104);
    form_.Label1.caption = Lingua(107);
    form_.Label2.caption = Lingua(106);
    form_.picPeakLeft.accessible.name = Lingua(107);
    form_.picPeakRight.accessible.name = Lingua(106);
    form_.txtFile.accessible.name = Lingua(105);
    form_.btnStart.caption = u'&' + Lingua(111);
    form_.btnStop.caption = Lingua(9);
    form_.cmbChannels.text = form_.cmbChannels.items->at(0);
    form_.cmbBits.text = form_.cmbBits.items->at(0);
    form_.cmbFrequency.text = form_.cmbFrequency.items->at(1);
    form_.load(form_.picPeakLeft, u"meter.jpg");
    form_.picPeakRight.picture = form_.picPeakLeft.picture;
    form_.picPeakLeft.width = 0;
    form_.picPeakRight.width = 0;
    showState(u"", blue, false);
    engine_.AggancioCattura(true);
    form_.Timer.setInterval(tickPeriod);
    enableTicks();
    if (form_.tag.get() == u"1")
        startCapture();
    setDefaultFile();
}

void RecorderWindow::placeBesidePlayer() {
    const controls::Screen& screen = player_.screen;
    const double right = player_.left + player_.width + gap;
    const double left = player_.left - gap - form_.width;
    if (right + form_.width <= screen.width || left >= 0) {
        form_.left = right + form_.width <= screen.width ? right : left;
        form_.top = player_.top.get();
    } else {
        form_.left = player_.left.get();
        form_.top = player_.top + player_.height + gap;
    }
    // Stays on the screen even if the player hangs over its edge.
    form_.left = std::clamp(form_.left.get(), 0.0, std::max(0.0, screen.width - form_.width));
    form_.top = std::clamp(form_.top.get(), 0.0, std::max(0.0, screen.height - form_.height));
}

void RecorderWindow::setDefaultFile() {
    base::Text path;
    int counter = 0;
    do {
        path = form_.folder.path() + base::pathSeparator + u"Rec " + twoDigits(++counter) + u".wav";
    } while (base::fileExists(path));
    form_.txtFile.text = path;
}

void RecorderWindow::ScegliFileWav() {
    const lang::LanguageTable& Lingua = form_.Lingua;
    platform::FileDialogRequest request;
    request.owner = form_.name;
    request.title = Lingua(105);
    request.fileName = form_.txtFile.text;
    request.defaultExtension = u"wav";
    request.extensionAlways = true;
    request.filter = platform::fileFilter({{Lingua(123), u"*.wav"}});
    request.initialFolder = settings_.CartellaMedia;
    form_.txtFile.text = dialogs_.FileDlg(request);
    if (form_.txtFile.text->empty() || !base::fileExists(form_.txtFile.text.get()))
        return;
    base::carryOn([&] { settings_.CartellaMedia = base::currentFolder(); });
    const platform::Answer answer =
        dialogs_.messageBox(base::TogliAmp(Lingua(53)) + u"\r\r" + base::TogliAmp(Lingua(54)),
                            base::TogliAmp(Lingua(1)), platform::BoxStyle::YesNoExclamation);
    if (answer == platform::Answer::No)
        form_.txtFile.text = u"";
}

void RecorderWindow::btnStart_Click() {
    if (form_.btnStart.tag->empty())
        start();
    else
        pauseOrResume();
}

void RecorderWindow::start() {
    form_.picPeakLeft.width = 0;
    form_.picPeakRight.width = 0;
    form_.btnStart.tag = u"Start";
    form_.btnStart.caption = form_.Lingua(8);
    ScegliFileWav();
    if (base::trimmed(form_.txtFile.text.get()).empty())
        return;
    EnableRecording();
    startCapture();
    form_.Image2.visible = true;
    form_.btnStop.visible = true;
    form_.Picture4.visible = true;
}

void RecorderWindow::pauseOrResume() {
    const lang::LanguageTable& Lingua = form_.Lingua;
    form_.btnStart.tag = u"Pause";
    bCattura = !bCattura;
    if (bCattura) {
        form_.btnStart.caption = Lingua(8);
        showState(Lingua(113), red, true);
        form_.Image2.visible = true;
    } else {
        form_.btnStart.caption = u'&' + Lingua(112);
        showState(Lingua(114), green, true);
        form_.Image2.visible = false;
    }
    engine_.PausaCattura();
}

void RecorderWindow::startCapture() {
    const auto channels = static_cast<std::int16_t>(form_.cmbChannels.listIndex() == 0 ? 2 : 1);
    engine_.AvviaCattura(channels, static_cast<std::int16_t>(number(form_.cmbBits)),
                         number(form_.cmbFrequency), form_.txtFile.text.get());
}

void RecorderWindow::btnStop_Click() {
    if (form_.lblState.caption.get() == form_.Lingua(114)) {
        bCattura = !bCattura;
        engine_.PausaCattura();
    }
    form_.btnStart.tag = u"";
    form_.btnStart.caption = u'&' + form_.Lingua(111);
    DisableRecording();
    engine_.AggancioCattura(false);
    engine_.FermaCattura();
    engine_.AggancioCattura(true);
    form_.Image2.visible = false;
}

void RecorderWindow::EnableRecording() {
    bCattura = true;
    bMisura = true;
    form_.btnStop.enabled = true;
    for (controls::ComboBox* box : {&form_.cmbChannels, &form_.cmbFrequency, &form_.cmbBits})
        box->enabled = false;
    form_.txtFile.enabled = false;
    showState(form_.Lingua(113), red, true);
}

void RecorderWindow::DisableRecording() {
    bCattura = false;
    bMisura = false;
    form_.btnStop.enabled = false;
    for (controls::ComboBox* box : {&form_.cmbChannels, &form_.cmbFrequency, &form_.cmbBits})
        box->enabled = true;
    form_.txtFile.enabled = true;
    showState(u"", blue, false);
}

void RecorderWindow::showState(base::Text caption, controls::Color color, bool bold) {
    form_.lblState.caption = std::move(caption);
    form_.lblState.foreColor = color;
    form_.lblState.fontBold = bold;
    form_.load(form_.Image2, u"lamp.png");
}

void RecorderWindow::Timer_Timer() {
    if (bMisura)
        moveMeters();
    if (bCattura) {
        blink();
        form_.lblTime.caption = FormatTime(engine_.SecondiRegistrati(), false);
    }
    form_.lblBytesWritten.caption =
        base::numberText(static_cast<double>(engine_.ByteRegistrati())) + u' ' + form_.Lingua(110);
}

void RecorderWindow::moveMeters() {
    int left = 0;
    int right = 0;
    engine_.LeggiPicchi(left, right);
    const auto greatest = static_cast<int>(engine_.ValoreMassimo());
    if (form_.now() - lastMeters_ < metersEvery || greatest == 0)
        return;
    const auto show = [this, greatest](controls::Fill& meter, int peak) {
        const int length = peak * static_cast<int>(FrmAudioRec::ScaleWidth) / greatest;
        const double width = length - meterMargin;
        if (width >= 0) // a control rejects negative widths; the bar keeps its last width
            meter.width = width;
        else if (peak == 0 && engine_.isIdle())
            meter.width = 0;
    };
    show(form_.picPeakLeft, left);
    show(form_.picPeakRight, right);
    lastMeters_ = form_.now();
}

void RecorderWindow::blink() {
    if (form_.now() - lastBlink_ < blinkEvery)
        return;
    const base::Text& recording = form_.Lingua(113);
    const bool off = form_.lblState.caption.get() == recording;
    form_.lblState.caption = off ? base::Text() : recording;
    form_.load(form_.Image2, off ? u"lamp2.png" : u"lamp.png");
    lastBlink_ = form_.now();
}

void RecorderWindow::enableTicks() {
    // A hidden window needs no updates.
    form_.Timer.setEnabled(form_.visible);
}

void RecorderWindow::Form_Unload() {
    engine_.AggancioCattura(false);
    engine_.FermaCattura();
    form_.visible = false;
    enableTicks();
    form_.reset();
    bCattura = false;
    bMisura = false;
    loaded_ = false;
}

} // namespace recorder
