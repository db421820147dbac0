#pragma once

#include "aids/worklog_file.h"
#include "controls/timer.h"
#include "editor/snapshot_text.h"
#include "platform/rich_text.h"

#include <functional>
#include <utility>
#include <vector>

namespace aids {

// Parts of a recording, in seconds, that were heard.
class HeardParts {
public:
    void clear() { parts_.clear(); }
    // Returns how much of this part is new.
    double add(double from, double to);
    double total() const;

private:
    std::vector<std::pair<double, double>> parts_; // in order, apart from each other
};

// Measures the work of the user and keeps it in the worklog. Who does nothing for a minute does not work from
// then on. Time is that of the monotonic clock; only the day comes from the calendar.
class Worklog {
public:
    // What is worked on.
    struct Place {
        base::Text date;
        base::Text recording; // name of its file, empty for none
        base::Text document;

        bool operator==(const Place&) const = default;
    };
    struct Sound {
        bool plays = false;
        double position = 0; // seconds
        double rate = 1;
    };

    Worklog(WorklogFile& file, platform::EventLoop& loop);

    std::function<Place()> Where = [] { return Place(); };
    std::function<Sound()> Hears = [] { return Sound(); };
    bool keeps = true; // the file is written
    // Writing failed.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

    void start();
    // Writes what the file does not hold yet.
    void flush();
    void leave();

    // The user did something.
    void worked() { last_ = loop_.now(); }
    // The user typed or deleted.
    void typed(const editor::SnapshotText& before, const editor::SnapshotText& after,
               const platform::TextChange& change);

    // What the file holds, without what is done now.
    std::vector<WorkEntry> past();
    // What is done now, on this day with this recording and this document.
    WorkEntry entry() const;
    const Place& place() const { return place_; }
    const HeardParts& heard() const { return heard_; }

private:
    void tick();
    void enter(Place place);

    WorklogFile& file_;
    platform::EventLoop& loop_;
    controls::Timer tick_;
    Place place_;
    HeardParts heard_;
    Sound sound_;              // at the last tick
    std::int64_t ticked_ = 0;  // ms of the monotonic clock
    std::int64_t last_ = 0;    // when the user did something, likewise
    std::int64_t written_ = 0; // likewise
    std::int64_t worked_ = 0;  // ms of this entry
    double listened_ = 0;      // seconds of this entry
    std::int64_t words_ = 0;   // of this entry; below 0 if more were deleted
};

} // namespace aids
