#include "recorder/cut_off_recordings.h"

#include "base/binary_file.h"
#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"
#include "recorder/wav_header.h"
#include "recorder/wav_repair.h"

#include <algorithm>
#include <chrono>

namespace recorder {

namespace {

constexpr int quietAfter = 2000; // ms from the start on
constexpr int askEvery = 100;    // ms

// What the recorder offers before anything is chosen.
platform::WaveFormat usualFormat() {
    return pcmFormat(2, 16, 44100);
}

base::Text words(const platform::WaveFormat& format) {
    return base::numberText(format.samplesPerSec) + u" Hz, " + base::numberText(format.bitsPerSample) +
           u" bits, " + (format.channels == 2 ? u"stereo" : u"mono");
}

} // namespace

CutOffRecordings::CutOffRecordings(platform::EventLoop& loop, platform::Dialogs& dialogs,
                                   RecordingJournal& journal, const lang::LanguageTable& language)
    : dialogs_(dialogs), journal_(journal), Lingua(language), alarm_(loop.alarm([this] { tick(); })) {}

CutOffRecordings::~CutOffRecordings() {
    stop_ = true;
}

void CutOffRecordings::search(std::vector<base::Text> folders) {
    folders_ = std::move(folders);
    alarm_->start(quietAfter);
}

void CutOffRecordings::stop() {
    stop_ = true;
    alarm_->stop();
}

void CutOffRecordings::tick() {
    if (!running_.valid())
        begin();
    else if (running_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        finish();
}

void CutOffRecordings::begin() {
    Repairs noted;
    for (const RecordingJournal::Entry& entry : journal_.entries()) {
        if (isCutOff(entry.path))
            noted.push_back({entry.path, entry.format, true});
        // One that is not there may be on a disk that will come back.
        else if (base::fileExists(entry.path) && !base::BinaryFile::isHeld(entry.path))
            base::carryOn([&] { journal_.finished(entry.path); });
    }
    running_ = std::async(std::launch::async, [noted = std::move(noted), folders = folders_, this]() mutable {
        return repairAll(std::move(noted), folders, stop_);
    });
    alarm_->start(askEvery);
}

CutOffRecordings::Repairs CutOffRecordings::repairAll(Repairs repairs, const std::vector<base::Text>& folders,
                                                      const std::atomic_bool& stop) {
    for (const base::Text& folder : folders) {
        for (base::Text& path : cutOffRecordings(folder, stop)) {
            const auto known = [&](const Repair& repair) { return repair.path == path; };
            if (std::none_of(repairs.begin(), repairs.end(), known))
                repairs.push_back({std::move(path), usualFormat()});
        }
    }
    for (Repair& repair : repairs) {
        if (!stop)
            carryOut(repair);
    }
    return repairs;
}

void CutOffRecordings::finish() {
    if (!running_.valid())
        return;
    alarm_->stop();
    Repairs repairs = running_.get();
    // One of a folder that takes no copy would be told at every start.
    std::erase_if(repairs, [](const Repair& repair) { return !repair.made && !repair.noted; });
    tell(repairs);
}

base::Text CutOffRecordings::wholeRecording(base::TextView path) {
    if (!isCutOff(path))
        return base::Text(path);
    finish();
    Repair repair = repairOf(path);
    carryOut(repair);
    tell({repair});
    return repair.copy.empty() ? base::Text(path) : repair.copy;
}

CutOffRecordings::Repair CutOffRecordings::repairOf(base::TextView path) const {
    const auto noted = journal_.formatOf(path);
    return {base::Text(path), noted.value_or(usualFormat()), noted.has_value()};
}

void CutOffRecordings::carryOut(Repair& repair) {
    try {
        RepairedCopy copy = repairCutOff(repair.path, repair.format);
        repair.copy = std::move(copy.path);
        repair.made = copy.made;
    } catch (const base::Failure& failure) {
        repair.failure = base::fromUtf8(failure.what());
    }
}

void CutOffRecordings::tell(const Repairs& repairs) {
    base::Text text;
    for (const Repair& repair : repairs) {
        const base::Text begin = (text.empty() ? u"" : u"\r\r") + (u"The recording\r" + repair.path) +
                                 u"\rwas cut off before it was finished. ";
        if (repair.made)
            text += begin + u"A repaired copy was saved as\r" + repair.copy + u"\r(" + words(repair.format) +
                    (repair.noted ? u")." : u", the usual format: its own is not known).");
        else if (!repair.failure.empty())
            text += begin + u"It could not be repaired:\r" + repair.failure;
        if (!repair.copy.empty())
            base::carryOn([&] { journal_.finished(repair.path); });
    }
    if (!text.empty())
        dialogs_.messageBox(text + u"\r\rThe damaged file was left as it is.", base::TogliAmp(Lingua(1)),
                            platform::BoxStyle::Exclamation);
}

} // namespace recorder
