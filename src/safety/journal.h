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

// The source of the work that the journal protects.
class JournalSource {
public:
    virtual ~JournalSource() = default;
    // The paragraphs whose letters or formats have changed since the last call; none without a change. The
    // cost is proportional to those paragraphs.
    virtual std::optional<platform::ParagraphChange> takeChange() = 0;
    // The whole text as RTF; takeChange reports changes from here on.
    virtual std::string wholeText() = 0;
    virtual DocumentState documentState() = 0;
    virtual Marks marks() = 0;
};

// Writes every change of the work to the disk within one second. A change starts a timer; the timer collects
// the changes and posts them to the disk thread. So a key press only costs starting the timer. The disk
// thread rewrites a journal that has grown too long, from its own records.
class Journal {
public:
    Journal(platform::EventLoop& loop, platform::Worker& disk, JournalSource& source, base::Text path);
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // Some part of the work has changed.
    void changed();
    // Posts all pending changes at once: what was saved must not come back from an older record.
    void gather();
    // Writes all pending changes and waits for the disk; called at the end of a session or of the process.
    void flush();
    // No unsaved work is left: deletes the file, or empties it if the folder does not allow that, and stops.
    void close();

    // Writing a record failed. Called once per series of failures, on the event loop, with the system's
    // message.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

private:
    // State shared between the event loop and the disk thread.
    struct Shared {
        explicit Shared(base::Text path) : file(std::move(path)) {}
        void begin(const std::string& records);
        void append(const std::string& records);
        void compact();

        JournalFile file;             // this and the next two belong to the disk thread
        std::uint64_t size = 0;       // bytes
        std::uint64_t mostBytes = 0;  // a longer file is rewritten
        std::atomic<int> pending = 0; // writes that are not done yet
        std::atomic<bool> failed = false;
        std::atomic<bool> mustBegin = true; // the file lacks a record, so it must be rewritten
        std::mutex mutex;
        base::Text reason; // guarded by mutex
    };

    void check();
    void beginAnew(const std::string& source);
    std::string stateRecords();
    void write(std::string records, bool anew);
    void reportFailure();

    platform::Worker& disk_;
    JournalSource& source_;
    std::shared_ptr<Shared> shared_;
    std::unique_ptr<platform::Alarm> soon_;
    std::unique_ptr<platform::Alarm> written_;
    bool armed_ = false;
    bool retrying_ = false; // armed for longer, because the disk fails
    bool reported_ = false;
    std::optional<DocumentState> lastState_;
    std::optional<Marks> lastMarks_;
};

} // namespace safety
