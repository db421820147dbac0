#pragma once

#include "lang/language_table.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "recorder/recording_journal.h"

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <vector>

namespace recorder {

// The care for recordings that a crash cut off: each gets a repaired copy, and the user is told. The damaged
// file stays as it is. Copies are made on a thread of their own; the rest runs on the loop.
class CutOffRecordings {
public:
    // Takes the path of the file to play.
    using Play = std::function<void(const base::Text& path)>;

    CutOffRecordings(platform::EventLoop& loop, platform::Dialogs& dialogs, RecordingJournal& journal,
                     const lang::LanguageTable& language);
    CutOffRecordings(const CutOffRecordings&) = delete;
    CutOffRecordings& operator=(const CutOffRecordings&) = delete;
    ~CutOffRecordings();

    // In a quiet moment, and beside the work of the program, looks for them where the journal says and in
    // these folders.
    void search(std::vector<base::Text> folders);
    // Waits for the work that runs, and tells what came of it.
    void finish();
    // Gives up the work that runs; no more is done.
    void stop();

    // Calls `play` with the file to play for this one: of a recording that was cut off its repaired copy,
    // which is made now if need be; of any other itself. That is at once, but for a long copy, which gets a
    // window that tells how far it is. Then `play` is not called at all when the user gives the copy up, or
    // asks for another file meanwhile.
    void wholeRecording(base::TextView path, Play play);

private:
    // One recording, and what came of it.
    struct Repair {
        base::Text path;
        platform::WaveFormat format;
        bool noted = false;   // the journal knows its format; else it is the recorder's usual one
        bool whole = false;   // it is there and was not cut off
        base::Text copy{};    // empty: there is none
        base::Text failure{}; // why
        bool made = false;    // the copy is new
    };
    using Repairs = std::vector<Repair>;

    bool isDamaged(base::TextView path) const;
    Repair repairOf(base::TextView path) const;
    // What the thread does.
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
    std::unique_ptr<platform::Alarm> alarm_;
    std::vector<base::Text> folders_;
    bool searchLeft_ = false; // there is still to be searched
    base::Text asked_;        // the file that is repaired because somebody opened it; else a search runs
    Play play_;               // who waits for it
    std::unique_ptr<platform::Progress> progress_;
    std::atomic_bool stop_ = false;
    std::atomic<double> share_ = 0;
    std::future<Repairs> running_; // while work runs; ends before what it uses does
};

} // namespace recorder
