#include "recorder/frm_audio_rec.h"

#include <cmath>
#include <utility>

namespace recorder {

namespace {

constexpr controls::Color ink = controls::rgb(0x1F, 0x2A, 0x44);
constexpr controls::Color quiet = controls::rgb(0x5B, 0x67, 0x7D);
constexpr double captionSize = 8.25; // points
constexpr double clockSize = 15;
constexpr double counterSize = 9.75;

} // namespace

FrmAudioRec::FrmAudioRec(platform::EventLoop& loop, const lang::LanguageTable& language,
                         const base::ProgramFolder& programFolder)
    : Window("frmAudioRec", {0, 0, clientWidth, clientHeight}), Lingua(language), folder(programFolder),
      Timer(loop), loop_(loop) {
    icon = folder.files(u"quillmere.ico");
    load(Picture3, u"recorder.jpg");
    load(Picture4, u"state.png");
    load(Picture1, u"well.png");
    cmbChannels.items = std::vector<base::Text>{u"2 - stereo", u"1 - mono"};
    cmbFrequency.items = std::vector<base::Text>{u"48000", u"44100", u"22050", u"11025", u"8000"};
    cmbBits.items = std::vector<base::Text>{u"16", u"8"};
    for (controls::ComboBox* box : {&cmbChannels, &cmbFrequency, &cmbBits})
        box->editable = false;
    const std::pair<controls::Label*, base::TextView> names[] = {
        {&Label3, u"Time recorded:"}, {&Label4, u"Bytes written:"}, {&Label5, u"Options"},
        {&Label6, u"Channels:"},      {&Label7, u"Frequency:"},     {&Label8, u"Bits per sec.:"}};
    for (const auto& [label, words] : names) {
        label->caption = base::Text(words);
        label->foreColor = quiet;
        label->fontSize = captionSize;
    }
    for (controls::Label* label : {&Label1, &Label2, &lblTime, &lblBytesWritten, &Label5})
        label->foreColor = ink;
    Label3.labels = &lblTime;
    Label4.labels = &lblBytesWritten;
    Label6.labels = &cmbChannels;
    Label7.labels = &cmbFrequency;
    Label8.labels = &cmbBits;
    for (controls::Fill* const meter : {&picPeakLeft, &picPeakRight}) {
        meter->accessible.role = controls::Role::Meter;
        meter->accessible.value = [meter] { return std::floor(100 * meter->width / ScaleWidth); };
        meter->accessible.advances = true;
    }
    Label5.fontBold = true;
    Label1.alignment = controls::Alignment::Right;
    Label2.alignment = controls::Alignment::Right;
    lblTime.fontSize = clockSize;
    lblTime.fontBold = true;
    lblBytesWritten.fontSize = counterSize;
    reset();
}

void FrmAudioRec::reset() {
    tag = u"";
    txtFile.text = u"";
    for (controls::Control* control :
         std::initializer_list<controls::Control*>{&txtFile, &cmbChannels, &cmbFrequency, &cmbBits})
        control->enabled = true;
    btnStart.tag = u"";
    btnStart.caption = u"Start";
    btnStop.caption = u"Stop";
    btnStop.visible = false;
    btnStop.enabled = false;
    lblTime.caption = u"00:00:00";
    lblBytesWritten.caption = u"0 bytes";
    picPeakLeft.width = 0;
    picPeakRight.width = 0;
    Image2.visible = false;
    Picture4.visible = false;
}

} // namespace recorder
