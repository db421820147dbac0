#pragma once

#include "lang/language_table.h"
#include "lang/words.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "recorder/recording_journal.h"

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <vector>

namespace recorder {

// Repairs recordings that a crash cut off: makes a repaired copy of each and tells the user. The damaged file
// stays unchanged. Copies are made on a background thread, everything else runs on the event loop.
class CutOffRecordings {
public:
    // Receives the path of the file to play.
    using Play = std::function<void(const base::Text& path)>;

    CutOffRecordings(platform::EventLoop& loop, platform::Dialogs& dialogs, RecordingJournal& journal,
                     const lang::LanguageTable& language, const lang::Words& words);
    CutOffRecordings(const CutOffRecordings&) = delete;
    CutOffRecordings& operator=(const CutOffRecordings&) = delete;
    ~CutOffRecordings();

    // Searches for cut-off recordings in the journal and in these folders, a little later and in the
    // background.
    void search(std::vector<base::Text> folders);
    // Waits for the running work and reports its results.
    void finish();
    // Cancels the running work and starts no more.
    void stop();

    // Calls `play` with the file to play instead of `path`: for a cut-off recording its repaired copy, which
    // is made if necessary; otherwise `path` itself. Calls it at once, unless making the copy takes long,
    // which shows a progress window. Never calls it if the user cancels the copy or another file is requested
    // meanwhile.
    void wholeRecording(base::TextView path, Play play);

    // One recording and the result of its repair.
    struct Repair {
        base::Text path;
        platform::WaveFormat format;
        bool noted = false;   // the journal has its format; otherwise the default one is assumed
        bool whole = false;   // it exists and was not cut off
        base::Text copy{};    // path of the copy; empty if there is none
        base::Text failure{}; // why there is no copy
        bool made = false;    // the copy was made just now
    };

    // A copy was made, or could not be.
    std::function<void(const Repair&)> Told = [](const Repair&) {};

private:
    using Repairs = std::vector<Repair>;

    bool isDamaged(base::TextView path) const;
    Repair repairOf(base::TextView path) const;
    // These two run on the background thread.
    Repairs repairAll(Repairs noted, const std::vector<base::Text>& folders);
    void carryOut(Repair& repair);

    void run(std::function<Repairs()> work);
    bool isDone() const;
    void giveUp();
    void tick();
    void beginSearch();
    void showProgress(base::TextView path);
    void tell(const Repairs& repairs);

    platform::Dialogs& dialogs_;
    RecordingJournal& journal_;
    const lang::LanguageTable& Lingua;
    const lang::Words& words_;
    std::unique_ptr<platform::Alarm> alarm_;
    std::vector<base::Text> folders_;
    bool searchLeft_ = false; // a search is still to be done
    base::Text asked_;        // the file being repaired because somebody opened it; empty during a search
    Play play_;               // called when that file is repaired
    std::unique_ptr<platform::Progress> progress_;
    std::atomic_bool stop_ = false;
    std::atomic<double> share_ = 0;
    std::future<Repairs>
        running_; // the running work; last member, so that it ends before the members that it uses
};

} // namespace recorder
