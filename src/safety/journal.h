#pragma once

#include "platform/event_loop.h"
#include "platform/worker.h"
#include "safety/journal_file.h"
#include "safety/work.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace safety {

// Where the journal finds what has to be kept.
class JournalSource {
public:
    virtual ~JournalSource() = default;
    // Paragraphs that changed since this was last asked, in letters or formats; nothing when none did. Its
    // cost is that of the paragraphs.
    virtual std::optional<platform::ParagraphChange> takeChange() = 0;
    // The whole text as RTF, with which takeChange begins anew.
    virtual std::string wholeText() = 0;
    virtual DocumentState documentState() = 0;
    virtual Marks marks() = 0;
};

// Keeps every change of the work on the disk, at most one second after it happened: a change arms a timer,
// the timer gathers what changed and posts it to the thread of the disk. A key itself costs the arming of the
// timer.
class Journal {
public:
    Journal(platform::EventLoop& loop, platform::Worker& disk, JournalSource& source, base::Text path);
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // Something of the work changed.
    void changed();
    // Writes what is not written yet and waits for the disk, at the end of a session or of the process.
    void flush();
    // Nothing is left unsaved: deletes the file and stops.
    void close();

    // The disk refused a record; told once until one is accepted again. Called on the loop, with the system's
    // words.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

private:
    // What the thread of the disk shares with the loop.
    struct Shared {
        explicit Shared(base::Text path) : file(std::move(path)) {}
        JournalFile file;
        std::atomic<std::uint64_t> size = 0; // bytes
        std::atomic<bool> failed = false;
        std::atomic<bool> mustBegin = true; // the file lacks a record: it has to begin anew
        std::mutex mutex;
        base::Text reason; // guarded by mutex
    };

    void gather();
    void gatherIdle();
    void beginAnew(const std::string& source);
    std::string stateRecords();
    void write(std::string records, bool anew);
    void reportFailure();

    platform::Worker& disk_;
    JournalSource& source_;
    std::shared_ptr<Shared> shared_;
    std::unique_ptr<platform::Alarm> soon_;
    std::unique_ptr<platform::Alarm> idle_;
    bool armed_ = false;
    bool reported_ = false;
    std::size_t sourceSize_ = 0; // bytes of the last whole text
    std::optional<DocumentState> lastState_;
    std::optional<Marks> lastMarks_;
};

} // namespace safety
