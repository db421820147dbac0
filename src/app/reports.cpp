#include "app/reports.h"

#include "base/numbers.h"

namespace app {

using lang::operator""_en;

namespace {

base::Text nameOf(base::TextView path) {
    return base::Text(base::afterLast(path, base::pathSeparator));
}

// As the recorder's own boxes name it, in every language.
base::Text formatText(const platform::WaveFormat& format) {
    return base::numberText(format.samplesPerSec) + u" Hz, " + base::numberText(format.bitsPerSample) +
           u" bit, " + (format.channels == 2 ? u"stereo" : u"mono");
}

} // namespace

Reports::Reports(safety::Notices& notices, Rooms rooms) : notices_(notices) {
    followFiles(rooms);
    followPlayer(rooms.form1);
    followRecorder(rooms.recorder);
}

void Reports::followFiles(Rooms& rooms) {
    const auto tellOf = [this](lang::English sentence, const controls::Window& window) {
        return [this, sentence, &window](const base::Text& detail) {
            notices_.tell(sentence, {detail}, &window);
        };
    };
    rooms.settings.Failed = tellOf(u"The settings could not be saved: %1"_en, rooms.form1);
    const lang::English recent = u"The list of recent files could not be saved: %1"_en;
    rooms.recentMedia.Failed = tellOf(recent, rooms.form1);
    rooms.editor.recentDocuments().Failed = tellOf(recent, rooms.editor.form());
    rooms.bookmarks.media.Failed = tellOf(u"The bookmarks could not be saved: %1"_en, rooms.bookmarks.form());
    rooms.bookmarks.window.Dropped =
        tellOf(u"A recording has 501 bookmarks at most; this one was dropped: %1"_en, rooms.bookmarks.form());
}

void Reports::followPlayer(player::Form1& form1) {
    form1.WMP1.Failed = [this, &form1](const base::Text& reason) {
        notices_.tell(u"%1 cannot be played: %2"_en, {nameOf(form1.WMP1.URL()), reason}, &form1);
    };
    form1.WMP1.SoundLost = [this, &form1](const base::Text& reason) {
        if (reason.empty())
            notices_.tell(u"There is no sound output: nothing can be heard."_en, {}, &form1);
        else
            notices_.tell(u"There is no sound output: %1"_en, {reason}, &form1);
    };
    form1.WMP1.SoundBack = [this, &form1] { notices_.tell(u"The sound output is back."_en, {}, &form1); };
}

void Reports::followRecorder(RecorderRoom& room) {
    const controls::Window& window = room.form();
    const auto tellOf = [this, &window](lang::English sentence) {
        return [this, sentence, &window](const base::Text& reason) {
            notices_.tell(sentence, {reason}, &window);
        };
    };
    room.engine().DiskRefuses = tellOf(u"The recording cannot be written: %1"_en);
    room.engine().DiskTakes = [this, &window] {
        notices_.tell(u"The recording is written again; what came meanwhile is missing."_en, {}, &window);
    };
    room.engine().DeviceLost = tellOf(u"The recording device is gone: %1"_en);
    room.engine().DeviceBack = [this, &window] {
        notices_.tell(u"The recording device is back, and the recording goes on."_en, {}, &window);
    };
    room.cutOff().Told = [this, &window](const recorder::CutOffRecordings::Repair& repair) {
        tellRepair(repair, window);
    };
}

void Reports::tellRepair(const recorder::CutOffRecordings::Repair& repair, const controls::Window& window) {
    const base::Text name = nameOf(repair.path);
    if (!repair.made)
        notices_.tell(u"The recording %1 was cut off before it was finished and could not be repaired: %2"_en,
                      {name, repair.failure}, &window);
    else if (repair.noted)
        notices_.tell(u"The recording %1 was cut off before it was finished; a repaired copy is %2 (%3)."_en,
                      {name, repair.copy, formatText(repair.format)}, &window);
    else
        notices_.tell(u"The recording %1 was cut off before it was finished; a repaired copy is %2 (%3, the "
                      "usual format: its own is not known)."_en,
                      {name, repair.copy, formatText(repair.format)}, &window);
}

} // namespace app
