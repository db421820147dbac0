#include "sound/phrase_finder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace sound {

namespace {

using Levels = std::vector<std::uint8_t>;

constexpr int frameSamples = samplesPerSec / 1000 * PhraseFinder::frameMs;
constexpr std::size_t levelCount = 201; // of the values of a level
constexpr int dB = 2;                   // units of a level

constexpr std::size_t around = 1000;     // frames on either side that a frame is compared with
constexpr std::size_t every = 10;        // frames from one comparison to the next
constexpr int quietShare = 10;           // per cent of the frames that are the floor
constexpr int loudShare = 95;            // per cent of the frames that are no louder than the speech
constexpr int range = 45 * dB;           // of speech; what lies lower is silence
constexpr int leastContrast = 8 * dB;    // between speech and floor
constexpr int leastAbove = 6 * dB;       // between a loud frame and the floor
constexpr int share = 30;                // per cent of the contrast that a loud frame has at least
constexpr int silence = (100 - 66) * dB; // below which nothing is loud

constexpr std::size_t click = 5;          // frames; what is shorter is no speech
constexpr std::size_t reach = 20;         // frames beside a loud one that may belong to it
constexpr std::size_t leastLoud = 3;      // loud frames of a run
constexpr std::size_t leastSpeech = 8;    // frames of a phrase
constexpr std::size_t pause = 16;         // frames between two phrases, at least
constexpr std::size_t lead = 6;           // frames before the first sound
constexpr std::size_t tail = 4;           // frames behind the last one
constexpr std::size_t onset = 2;          // the same after a shorter pause
constexpr std::uint8_t silentDepth = 200; // of a gap that is a short pause; that of other dips is less

constexpr std::size_t dipReach = 20; // frames on either side of a dip
constexpr int leastDip = 6 * dB;

// What a frame must reach: `loud` to be speech, `faint` to belong to the speech beside it.
struct Threshold {
    int loud = 0;
    int faint = 0;
};

// Frames from `begin` up to `end`.
struct Run {
    std::size_t begin = 0;
    std::size_t end = 0;

    std::size_t length() const { return end - begin; }
};

// The levels of the frames around one, counted.
class Neighbourhood {
public:
    void add(std::uint8_t level) { change(level, +1); }
    void remove(std::uint8_t level) { change(level, -1); }

    // The level that this share of the frames does not exceed.
    int below(int percent) const {
        int rest = total_ * percent / 100;
        std::size_t level = 0;
        while (level + 1 < levelCount && (rest -= counts_[level]) >= 0)
            ++level;
        return static_cast<int>(level);
    }

private:
    void change(std::uint8_t level, int by) {
        counts_[level] += by;
        total_ += by;
    }
    std::array<int, levelCount> counts_{};
    int total_ = 0;
};

Threshold thresholdOf(const Neighbourhood& frames) {
    const int speech = frames.below(loudShare);
    const int floor = std::max(frames.below(quietShare), speech - range);
    if (speech - floor < leastContrast)
        return {levelCount, levelCount};
    const int above = std::max((speech - floor) * share / 100, leastAbove);
    const int loud = std::max(floor + above, silence);
    return {loud, std::max(floor + above / 2, silence - 6 * dB)};
}

// One threshold for each `every` frames.
std::vector<Threshold> thresholdsOf(const Levels& levels) {
    std::vector<Threshold> thresholds;
    Neighbourhood near;
    std::size_t added = 0;
    std::size_t removed = 0;
    for (std::size_t middle = 0; middle < levels.size(); middle += every) {
        while (added < std::min(middle + around, levels.size()))
            near.add(levels[added++]);
        while (removed + around < middle)
            near.remove(levels[removed++]);
        thresholds.push_back(thresholdOf(near));
    }
    return thresholds;
}

// The runs of frames that sound like speech.
std::vector<Run> runsOf(const Levels& levels) {
    const std::vector<Threshold> thresholds = thresholdsOf(levels);
    std::vector<Run> runs;
    std::size_t begin = 0;
    std::size_t loud = 0; // frames since then
    std::size_t last = 0; // of them
    for (std::size_t i = 0; i <= levels.size(); ++i) {
        const Threshold threshold =
            i < levels.size() ? thresholds[i / every] : Threshold{levelCount, levelCount};
        const int level = i < levels.size() ? levels[i] : 0;
        if (level >= threshold.loud) {
            if (++loud == 1)
                begin = std::max(begin, i - std::min(i, reach));
            last = i;
        }
        const bool isFaint = level >= threshold.faint;
        if (isFaint && (loud == 0 || i - last <= reach))
            continue;
        if (loud >= leastLoud && i - begin >= click)
            runs.push_back({begin, i});
        begin = isFaint ? i : i + 1;
        loud = 0;
    }
    return runs;
}

// Joins runs to phrases. Pauses that are too short to part them are gaps.
std::vector<Run> joined(const std::vector<Run>& runs, std::vector<Gap>& gaps) {
    std::vector<Run> phrases;
    for (const Run& run : runs) {
        const std::size_t silent = phrases.empty() ? pause : run.begin - phrases.back().end;
        if (silent >= pause) {
            phrases.push_back(run);
            continue;
        }
        phrases.back().end = run.end;
        const auto at = static_cast<std::int32_t>(run.begin - std::min(onset, silent / 2));
        gaps.push_back({at * PhraseFinder::frameMs, static_cast<std::uint8_t>(silentDepth + silent)});
    }
    std::erase_if(phrases, [](const Run& phrase) { return phrase.length() < leastSpeech; });
    return phrases;
}

// The dip whose lowest frame is this one, if it is a dip; its moment counts from the first frame.
std::optional<Gap> dipAt(std::span<const int> levels, std::size_t lowest) {
    const std::size_t from = lowest - std::min(lowest, dipReach);
    const std::span left = levels.subspan(from, lowest - from + 1);
    const std::span right = levels.subspan(lowest, std::min(dipReach + 1, levels.size() - lowest));
    const int deep = std::min(std::ranges::max(left), std::ranges::max(right)) - levels[lowest];
    if (deep < leastDip)
        return std::nullopt;
    // The longer it is, the more it is like a pause.
    const int brink = levels[lowest] + deep / 3;
    const auto above = [brink](int level) { return level > brink; };
    const auto begin = std::find_if(left.rbegin(), left.rend(), above) - left.rbegin();
    const auto end = std::ranges::find_if(right, above) - right.begin();
    const auto depth = std::min<std::ptrdiff_t>(deep / dB + 4 * (begin + end), silentDepth - 1);
    return Gap{(static_cast<std::int32_t>(lowest) + static_cast<std::int32_t>(end) - 1) *
                   PhraseFinder::frameMs,
               static_cast<std::uint8_t>(depth)};
}

// The levels of these frames, without their trembling.
std::vector<int> smoothed(const Levels& levels, const Run& run) {
    std::vector<int> smooth(run.length());
    for (std::size_t i = 0; i < smooth.size(); ++i) {
        const std::size_t at = run.begin + i;
        smooth[i] = (levels[at - std::min<std::size_t>(at, 1)] + 2 * levels[at] +
                     levels[std::min(at + 1, levels.size() - 1)]) /
                    4;
    }
    return smooth;
}

void addDips(const Levels& levels, const Run& run, std::vector<Gap>& gaps) {
    const std::vector<int> smooth = smoothed(levels, run);
    constexpr std::size_t near = dipReach / 3;
    for (std::size_t i = near; i + near < smooth.size(); ++i) {
        const std::span beside = std::span(smooth).subspan(i - near, 2 * near + 1);
        if (std::ranges::min_element(beside) - beside.begin() != near)
            continue;
        if (const auto gap = dipAt(smooth, i))
            gaps.push_back(
                {static_cast<std::int32_t>(run.begin) * PhraseFinder::frameMs + gap->at, gap->depth});
    }
}

} // namespace

// Butterworth's second order at 180 Hz, below the voice: hum and rumble are gone.
double PhraseFinder::passHigh(double sample) {
    constexpr double pass = 0.9512454;
    constexpr double one = -1.9001124;
    constexpr double two = 0.9048693;
    const double out = pass * sample + first_;
    first_ = -2 * pass * sample - one * out + second_;
    second_ = pass * sample - two * out;
    return out;
}

void PhraseFinder::add(std::span<const std::int16_t> samples) {
    // Keeps the filter from calculating with the tiniest numbers in silence, which is slow.
    constexpr double tiny = 1e-9;
    for (const std::int16_t sample : samples) {
        const double out = passHigh(sample + tiny);
        sum_ += out * out;
        if (++count_ < frameSamples)
            continue;
        constexpr double full = 32768.0 * 32768.0 * frameSamples;
        const double level = 100 + 10 * std::log10(sum_ / full + 1e-12);
        levels_.push_back(
            static_cast<std::uint8_t>(std::lround(std::clamp(level * dB, 0.0, levelCount - 1.0))));
        sum_ = 0;
        count_ = 0;
    }
}

Phrases PhraseFinder::find() const {
    const std::vector<Run> runs = runsOf(levels_);
    std::vector<Gap> gaps;
    std::vector<Phrase> phrases;
    const std::vector<Run> speech = joined(runs, gaps);
    for (std::size_t i = 0; i < speech.size(); ++i) {
        const std::size_t before = i == 0 ? 0 : speech[i - 1].end;
        const std::size_t behind = i + 1 < speech.size() ? speech[i + 1].begin : levels_.size();
        const std::size_t begin = speech[i].begin - std::min(lead, (speech[i].begin - before) / 2);
        const std::size_t end = speech[i].end + std::min(tail, (behind - speech[i].end) / 2);
        phrases.push_back(
            {static_cast<std::int32_t>(begin) * frameMs, static_cast<std::int32_t>(end) * frameMs});
    }
    for (const Run& run : runs)
        addDips(levels_, run, gaps);
    std::ranges::sort(gaps, {}, &Gap::at);
    return {std::move(phrases), std::move(gaps)};
}

} // namespace sound
