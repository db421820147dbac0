#include "recorder/cut_off_recordings.h"

#include "base/binary_file.h"
#include "base/carry_on.h"
#include "base/files.h"
#include "recorder/wav_header.h"
#include "recorder/wav_repair.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace recorder {

using lang::operator""_en;

namespace {

constexpr int quietAfter = 2000; // ms after the start
constexpr int askEvery = 100;    // ms
constexpr int shortWait = 300;   // ms; a copy that takes longer gets a progress window

// The recorder's default format.
platform::WaveFormat usualFormat() {
    return pcmFormat(2, 16, 44100);
}

} // namespace

CutOffRecordings::CutOffRecordings(platform::EventLoop& loop, platform::Dialogs& dialogs,
                                   RecordingJournal& journal, const lang::LanguageTable& language,
                                   const lang::Words& words)
    : dialogs_(dialogs), journal_(journal), Lingua(language), words_(words),
      alarm_(loop.alarm([this] { tick(); })) {}

CutOffRecordings::~CutOffRecordings() {
    stop_ = true;
}

void CutOffRecordings::search(std::vector<base::Text> folders) {
    folders_ = std::move(folders);
    searchLeft_ = true;
    if (!running_.valid())
        alarm_->start(quietAfter);
}

void CutOffRecordings::stop() {
    stop_ = true;
    searchLeft_ = false;
    play_ = nullptr;
    progress_.reset();
    alarm_->stop();
}

void CutOffRecordings::run(std::function<Repairs()> work) {
    stop_ = false;
    share_ = 0;
    running_ = std::async(std::launch::async, std::move(work));
    alarm_->start(askEvery);
}

bool CutOffRecordings::isDone() const {
    return running_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void CutOffRecordings::tick() {
    if (!running_.valid())
        beginSearch();
    else if (isDone())
        finish();
    else if (progress_)
        progress_->setShare(share_);
}

void CutOffRecordings::beginSearch() {
    Repairs noted;
    for (const RecordingJournal::Entry& entry : journal_.entries())
        noted.push_back({entry.path, entry.format, true});
    run([this, noted = std::move(noted), folders = folders_]() mutable {
        return repairAll(std::move(noted), folders);
    });
}

CutOffRecordings::Repairs CutOffRecordings::repairAll(Repairs noted, const std::vector<base::Text>& folders) {
    Repairs repairs;
    for (Repair& repair : noted) {
        // A missing recording may be on a disk that is mounted later, so its note stays.
        repair.whole =
            !isCutOff(repair.path) && base::fileExists(repair.path) && !base::BinaryFile::isHeld(repair.path);
        if (repair.whole || isCutOff(repair.path))
            repairs.push_back(std::move(repair));
    }
    for (const base::Text& folder : folders) {
        for (base::Text& path : cutOffRecordings(folder, stop_)) {
            const auto known = [&](const Repair& repair) { return repair.path == path; };
            if (std::none_of(repairs.begin(), repairs.end(), known))
                repairs.push_back({std::move(path), usualFormat()});
        }
    }
    for (Repair& repair : repairs) {
        if (!stop_ && !repair.whole)
            carryOut(repair);
    }
    return repairs;
}

void CutOffRecordings::finish() {
    if (!running_.valid())
        return;
    alarm_->stop();
    progress_.reset();
    const bool given = stop_;
    Repairs repairs = running_.get();
    const base::Text asked = std::exchange(asked_, {});
    const Play play = std::exchange(play_, nullptr);
    if (asked.empty()) {
        searchLeft_ = given && searchLeft_;
        // A recording in a folder without write access would otherwise be reported at every start.
        std::erase_if(repairs, [](const Repair& repair) { return !repair.made && !repair.noted; });
    }
    tell(repairs);
    if (searchLeft_ && !running_.valid())
        alarm_->start(quietAfter);
    if (play && !given)
        play(repairs.front().copy.empty() ? asked : repairs.front().copy);
}

void CutOffRecordings::giveUp() {
    stop_ = true;
    play_ = nullptr;
    finish();
}

void CutOffRecordings::wholeRecording(base::TextView path, Play play) {
    progress_.reset();
    play_ = nullptr; // a file requested earlier is no longer wanted
    if (!isDamaged(path)) {
        play(base::Text(path));
        return;
    }
    if (!running_.valid() || asked_ != path) {
        giveUp();
        asked_ = path;
        run([this, repair = repairOf(path)]() mutable {
            carryOut(repair);
            return Repairs{std::move(repair)};
        });
    }
    play_ = std::move(play);
    if (running_.wait_for(std::chrono::milliseconds(shortWait)) == std::future_status::ready)
        finish();
    else
        showProgress(path);
}

void CutOffRecordings::showProgress(base::TextView path) {
    const base::Text text = words_(
        u"The recording %1 was cut off before it was finished. A repaired copy is being made."_en, {path});
    progress_ = dialogs_.showProgress(text, base::TogliAmp(Lingua(1)), [this] { giveUp(); });
}

bool CutOffRecordings::isDamaged(base::TextView path) const {
    return isCutOff(path) && (hasSoundName(path) || journal_.formatOf(path));
}

CutOffRecordings::Repair CutOffRecordings::repairOf(base::TextView path) const {
    const auto noted = journal_.formatOf(path);
    return {base::Text(path), noted.value_or(usualFormat()), noted.has_value()};
}

void CutOffRecordings::carryOut(Repair& repair) {
    try {
        RepairedCopy copy = repairCutOff(repair.path, repair.format, [this](double share) {
            share_ = share;
            return !stop_;
        });
        repair.copy = std::move(copy.path);
        repair.made = copy.made;
    } catch (const base::Failure& failure) {
        if (!stop_)
            repair.failure = base::fromUtf8(failure.what());
    }
}

void CutOffRecordings::tell(const Repairs& repairs) {
    for (const Repair& repair : repairs) {
        if (repair.made || !repair.failure.empty())
            Told(repair);
        // The note of a cut-off recording stays as long as its file: the copy may be deleted or renamed, and
        // the next copy needs the format again.
        if (repair.whole)
            base::carryOn([&] { journal_.finished(repair.path); });
    }
}

} // namespace recorder
