#include "sound/waveform.h"

#include "sound/phrase_finder.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace sound {

namespace {

constexpr int columnSamples = samplesPerSec / 1000 * Waveform::columnMs;
constexpr std::size_t leastColumns = 500; // of the last level; the next one would be too coarse for a window
constexpr double fullScale = 32768;
constexpr double top = 255;

std::uint8_t rootOf(double amplitude) {
    return static_cast<std::uint8_t>(std::lround(top * std::sqrt(std::min(amplitude / fullScale, 1.0))));
}

Peak summedUp(std::span<const Peak> columns) {
    Peak all;
    double average = 0;
    for (const Peak& column : columns) {
        all.most = std::max(all.most, column.most);
        average += column.average * column.average; // squares of square roots
    }
    all.average =
        static_cast<std::uint8_t>(std::lround(std::sqrt(average / static_cast<double>(columns.size()))));
    return all;
}

} // namespace

Waveform::Waveform(std::vector<Peak> columns) {
    levels_.front() = std::move(columns);
    sumUp();
}

void Waveform::add(std::span<const std::int16_t> samples) {
    while (!samples.empty()) {
        const auto part =
            samples.first(std::min(samples.size(), static_cast<std::size_t>(columnSamples - count_)));
        int most = most_;
        std::int32_t sum = 0;
        for (const std::int16_t sample : part) {
            const int amplitude = std::abs(static_cast<int>(sample));
            most = std::max(most, amplitude);
            sum += amplitude;
        }
        most_ = most;
        sum_ += sum;
        count_ += static_cast<int>(part.size());
        samples = samples.subspan(part.size());
        if (count_ == columnSamples)
            endColumn();
    }
}

void Waveform::endColumn() {
    levels_.front().push_back({rootOf(most_), rootOf(static_cast<double>(sum_) / count_)});
    most_ = 0;
    sum_ = 0;
    count_ = 0;
}

void Waveform::end() {
    if (count_ > 0)
        endColumn();
    sumUp();
}

void Waveform::sumUp() {
    levels_.resize(1);
    while (levels_.back().size() > leastColumns) {
        const std::span<const Peak> finer = levels_.back();
        std::vector<Peak> coarser;
        coarser.reserve(finer.size() / ratio + 1);
        for (std::size_t i = 0; i < finer.size(); i += ratio)
            coarser.push_back(summedUp(finer.subspan(i, std::min<std::size_t>(ratio, finer.size() - i))));
        levels_.push_back(std::move(coarser));
    }
}

std::uint8_t Waveform::loudest() const {
    const std::vector<Peak>& coarsest = levels_.back();
    return coarsest.empty() ? std::uint8_t{0} : std::ranges::max_element(coarsest, {}, &Peak::most)->most;
}

} // namespace sound
