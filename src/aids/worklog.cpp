#include "aids/worklog.h"

#include "aids/figures.h"

#include <algorithm>
#include <cmath>

namespace aids {

namespace {

constexpr int tickPeriod = 1000;            // ms
constexpr std::int64_t idleAfter = 60000;   // ms
constexpr std::int64_t writePeriod = 30000; // ms; what a crash can lose
constexpr std::int32_t margin = 64;         // units, as long as most words
constexpr std::size_t largestTyped = 4096;  // units; more is not typed

// How many words there are in a part of a text and right beside it.
std::int64_t wordsAt(const editor::SnapshotText& text, std::int32_t position, std::int32_t length) {
    const std::int32_t begin = std::max(0, position - margin);
    return static_cast<std::int64_t>(figuresOf(text.text(begin, position + length + margin - begin)).words);
}

} // namespace

double HeardParts::add(double from, double to) {
    if (!(to > from))
        return 0;
    const double before = total();
    const auto first = std::ranges::find_if(parts_, [&](const auto& part) { return part.second >= from; });
    auto last = first;
    while (last != parts_.end() && last->first <= to) {
        from = std::min(from, last->first);
        to = std::max(to, last->second);
        ++last;
    }
    parts_.insert(parts_.erase(first, last), {from, to});
    return total() - before;
}

double HeardParts::total() const {
    double seconds = 0;
    for (const auto& [from, to] : parts_)
        seconds += to - from;
    return seconds;
}

Worklog::Worklog(WorklogFile& file, platform::EventLoop& loop) : file_(file), loop_(loop), tick_(loop) {
    tick_.Tick = [this] { tick(); };
}

void Worklog::start() {
    place_ = Where();
    ticked_ = written_ = loop_.now();
    last_ = ticked_ - idleAfter;
    tick_.setInterval(tickPeriod);
}

void Worklog::tick() {
    const std::int64_t now = loop_.now();
    const Sound sound = Hears();
    if (Place place = Where(); place != place_)
        enter(std::move(place));
    if (sound.plays)
        last_ = now;
    worked_ += std::max<std::int64_t>(0, std::min(now, last_ + idleAfter) - ticked_);
    const double seconds = static_cast<double>(now - ticked_) / 1000;
    const double moved = sound.position - sound_.position;
    // A jump is not heard.
    if (sound.plays && sound_.plays && moved > 0 && moved <= seconds * sound.rate * 1.5 + 0.5)
        listened_ += heard_.add(sound_.position, sound.position);
    sound_ = sound;
    ticked_ = now;
    if (now - written_ >= writePeriod)
        flush();
    if (const auto failure = file_.newFailure())
        Failed(*failure);
}

// The day, the recording or the document is another one: the entry is complete.
void Worklog::enter(Place place) {
    flush();
    file_.endEntry();
    if (place.recording != place_.recording) {
        heard_.clear();
        sound_ = {};
    }
    place_ = std::move(place);
    worked_ = words_ = 0;
    listened_ = 0;
}

WorkEntry Worklog::entry() const {
    return {place_.date,
            place_.recording,
            place_.document,
            worked_ / 1000,
            static_cast<std::int64_t>(std::llround(listened_)),
            std::max<std::int64_t>(0, words_)};
}

void Worklog::flush() {
    written_ = loop_.now();
    if (keeps && worked_ >= 1000)
        file_.write(entry());
}

void Worklog::leave() {
    tick();
    flush();
    tick_.setInterval(0);
}

void Worklog::typed(const editor::SnapshotText& before, const editor::SnapshotText& after,
                    const platform::TextChange& change) {
    worked();
    if (change.inserted.size() > largestTyped || change.removed > static_cast<std::int32_t>(largestTyped))
        return;
    words_ += wordsAt(after, change.position, static_cast<std::int32_t>(change.inserted.size())) -
              wordsAt(before, change.position, change.removed);
}

std::vector<WorkEntry> Worklog::past() {
    flush();
    std::vector<WorkEntry> all = file_.read();
    // The file may not take it.
    if (const auto mine = std::ranges::find(all, entry()); mine != all.end())
        all.erase(mine);
    return all;
}

} // namespace aids
