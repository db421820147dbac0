// The recorder's window as data: every control under its given name, with its initial position, caption and
// state.
#pragma once

#include "base/program_folder.h"
#include "controls/controls.h"
#include "controls/timer.h"
#include "lang/language_table.h"

namespace recorder {

// The recorder's window. The tag of btnStart stores whether a recording runs; the caption of lblState is
// compared with the words for recording and paused.
struct FrmAudioRec : controls::Window {
    FrmAudioRec(platform::EventLoop& loop, const lang::LanguageTable& language,
                const base::ProgramFolder& folder);

    // Resets every control to its initial state, as in a newly loaded window.
    void reset();
    // Seconds of a monotonic clock.
    double now() const { return static_cast<double>(loop_.now()) / 1000; }
    // Loads the skin's picture `file` into a control.
    void load(controls::Picture& picture, base::TextView file) const { picture.picture = folder.files(file); }

    static constexpr double clientWidth = 6600;  // twips
    static constexpr double clientHeight = 4860; // twips
    static constexpr double ScaleWidth = 4800;   // twips; inner width of Picture1, a meter at full scale

    const lang::LanguageTable& Lingua;
    const base::ProgramFolder& folder;

    // In z-order, from bottom to top. Controls without a given name are numbered.
    controls::Picture Picture3{"Picture3", {0, 0, clientWidth, clientHeight}}; // background
    controls::Picture Picture4{"Picture4", {345, 1020, 2430, 480}};  // panel of the lamp and the state
    controls::Picture Picture1{"Picture1", {1410, 1890, 4950, 600}}; // well of the meters
    controls::Fill picPeakLeft{"picPeakLeft", {1485, 1965, 0, 180}};
    controls::Fill picPeakRight{"picPeakRight", {1485, 2235, 0, 180}};
    controls::Label Label1{"Label1", {240, 1920, 1080, 270}};  // caption of the left meter
    controls::Label Label2{"Label2", {240, 2190, 1080, 270}};  // caption of the right meter
    controls::Picture Image2{"Image2", {465, 1140, 240, 240}}; // recording lamp
    controls::Label lblState{"lblState", {765, 1095, 1935, 330}};
    controls::Label Label3{"Label3", {2955, 945, 1575, 240}}; // caption of the clock
    controls::Label lblTime{"lblTime", {2955, 1185, 1575, 390}};
    controls::Label Label4{"Label4", {4590, 945, 1650, 240}}; // caption of the counter
    controls::Label lblBytesWritten{"lblBytesWritten", {4590, 1185, 1650, 390}};
    controls::Label Label5{"Label5", {420, 2745, 5700, 240}};  // caption of the options
    controls::Label Label6{"Label6", {420, 3075, 1800, 240}};  // caption of cmbChannels
    controls::Label Label7{"Label7", {2400, 3075, 1800, 240}}; // caption of cmbFrequency
    controls::Label Label8{"Label8", {4380, 3075, 1800, 240}}; // caption of cmbBits

    controls::TextBox txtFile{"txtFile", {240, 240, 6120, 390}}; // path of the WAV file
    controls::ComboBox cmbChannels{"cmbChannels", {420, 3330, 1800, 375}};
    controls::ComboBox cmbFrequency{"cmbFrequency", {2400, 3330, 1800, 375}}; // samples per second
    controls::ComboBox cmbBits{"cmbBits", {4380, 3330, 1800, 375}};           // bits per sample
    controls::CommandButton btnStart{"btnStart", {2880, 4185, 1680, 435}};    // start, pause, resume
    controls::CommandButton btnStop{"btnStop", {4680, 4185, 1680, 435}};

    // Calls `visit` with each control of the window, in z-order from bottom to top.
    template <typename Visitor>
    void forEachControl(Visitor&& visit) {
        const auto each = [&](auto&... controls) { (visit(controls), ...); };
        each(Picture3, Picture4, Picture1, picPeakLeft, picPeakRight, Label1, Label2, Image2, lblState,
             Label3, lblTime, Label4, lblBytesWritten, Label5, Label6, Label7, Label8, txtFile, cmbChannels,
             cmbFrequency, cmbBits, btnStart, btnStop);
    }

    controls::Timer Timer; // drives meters, clock, counter and lamp

private:
    platform::EventLoop& loop_;
};

} // namespace recorder
