#pragma once

#include "lang/language_table.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "recorder/recording_journal.h"

#include <atomic>
#include <future>
#include <memory>
#include <vector>

namespace recorder {

// The care for recordings that a crash cut off: each gets a repaired copy, and the user is told. The damaged
// file stays as it is.
class CutOffRecordings {
public:
    CutOffRecordings(platform::EventLoop& loop, platform::Dialogs& dialogs, RecordingJournal& journal,
                     const lang::LanguageTable& language);
    CutOffRecordings(const CutOffRecordings&) = delete;
    CutOffRecordings& operator=(const CutOffRecordings&) = delete;
    ~CutOffRecordings();

    // In a quiet moment, and beside the work of the program, looks for them where the journal says and in
    // these folders.
    void search(std::vector<base::Text> folders);
    // Waits for a search that runs, and tells what it found.
    void finish();
    // Ends a search that runs, after the file at hand.
    void stop();

    // The file to play for this one: of a recording that was cut off its repaired copy, which is made now if
    // need be; of any other itself.
    base::Text wholeRecording(base::TextView path);

private:
    // One recording that was cut off, and what came of it.
    struct Repair {
        base::Text path;
        platform::WaveFormat format;
        bool noted = false;   // the journal knows its format; else it is the recorder's usual one
        base::Text copy{};    // empty: there is none
        base::Text failure{}; // why
        bool made = false;    // the copy is new
    };
    using Repairs = std::vector<Repair>;

    Repair repairOf(base::TextView path) const;
    static void carryOut(Repair& repair);
    static Repairs repairAll(Repairs repairs, const std::vector<base::Text>& folders,
                             const std::atomic_bool& stop);
    void tick();
    void begin();
    void tell(const Repairs& repairs);

    platform::Dialogs& dialogs_;
    RecordingJournal& journal_;
    const lang::LanguageTable& Lingua;
    std::unique_ptr<platform::Alarm> alarm_;
    std::vector<base::Text> folders_;
    std::atomic_bool stop_ = false;
    std::future<Repairs> running_; // while a search runs; ends before what it uses does
};

} // namespace recorder
