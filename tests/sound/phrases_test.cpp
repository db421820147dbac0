#include "sound/phrase_finder.h"
#include "sound/phrase_step.h"
#include "testing.h"

#include <cmath>
#include <numbers>
#include <random>

using sound::Phrase;
using sound::Phrases;

namespace {

// A recording of eight seconds in which somebody speaks from 1 to 2.5 s and from 3 to 5 s. Amplitudes of 1
// are full scale.
struct Take {
    double speech = 0.2;
    double noise = 0.001;
    double hum = 0;
    double music = 0;
    double click = 0;
    double begin = 1; // of the first phrase, s; the pause between the two has 0.5 s in any case
    double loud = 1;  // of the noise in the second half

    std::vector<std::int16_t> samples() const {
        std::mt19937 random; // NOLINT(cert-msc51-cpp): always the same noise
        std::vector<std::int16_t> all;
        for (int i = 0; i < 8 * sound::samplesPerSec; ++i) {
            const double t = static_cast<double>(i) / sound::samplesPerSec;
            const auto wave = [t](double hz) { return std::sin(2 * std::numbers::pi * hz * t); };
            double sum = noise * (t < 4 ? 1 : loud) * (static_cast<double>(random() % 2001) / 1000 - 1);
            sum += hum * (wave(50) + wave(100) / 2) + music * (wave(220) + wave(277) + wave(330)) / 3;
            // A voice: harmonics that rise and fall with the syllables.
            if ((t >= begin && t < 2.5) || (t >= 3 && t < 5))
                for (int n = 1; n < 20; ++n)
                    sum += speech / (n + 2) * (0.7 + 0.3 * wave(4)) * wave(131 * n);
            if (click > 0 && std::fmod(t, 0.7) < 0.01)
                sum += click * wave(1500);
            all.push_back(static_cast<std::int16_t>(std::lround(std::clamp(sum, -1.0, 1.0) * 32767)));
        }
        return all;
    }
};

Phrases phrasesOf(std::span<const std::int16_t> samples) {
    sound::PhraseFinder finder;
    for (std::size_t i = 0; i < samples.size(); i += 997)
        finder.add(samples.subspan(i, std::min<std::size_t>(997, samples.size() - i)));
    return finder.find();
}

} // namespace

TEST(PhraseFinder, HearsSpeech_ThroughWhatLiesBelowIt) {
    const struct {
        const char* name;
        Take take;
    } rows[] = {
        {"a quiet room", {}},
        {"digital silence", {.noise = 0}},
        {"dictated quietly", {.speech = 0.01, .noise = 0.0003}},
        {"much noise", {.noise = 0.02}},
        {"noise that grows", {.noise = 0.002, .loud = 2}},
        {"hum louder than the voice", {.hum = 0.3}},
        {"music below", {.music = 0.01}},
        {"clicks of keys", {.click = 0.2}},
        {"from the first sample on", {.begin = 0}},
    };
    for (const auto& row : rows) {
        const std::vector<Phrase> found = phrasesOf(row.take.samples()).all();
        ASSERT_EQ(found.size(), 2U) << row.name;
        EXPECT_NEAR(found[0].begin, std::max(row.take.begin * 1000 - 60, 0.0), 30) << row.name;
        EXPECT_NEAR(found[0].end, 2500, 250) << row.name;
        EXPECT_NEAR(found[1].begin, 2940, 30) << row.name;
        EXPECT_NEAR(found[1].end, 5000, 250) << row.name;
    }
}

TEST(PhraseFinder, WhereNobodySpeaks_FindsNothing) {
    const std::vector<std::int16_t> none;
    const struct {
        const char* name;
        std::vector<std::int16_t> samples;
    } rows[] = {
        {"empty", none},
        {"one sample", {32767}},
        {"silence", std::vector<std::int16_t>(100'000, 0)},
        {"noise", Take{.speech = 0, .noise = 0.1}.samples()},
        {"music without a pause", Take{.speech = 0, .music = 0.5}.samples()},
        {"clicks", Take{.speech = 0, .click = 0.5}.samples()},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(phrasesOf(row.samples).all().empty()) << row.name;
}

TEST(PhraseStep, GoesToTheNearestPhrase_ButAlwaysBack_AndNeverTheSamePartAgain) {
    const Phrases phrases({{1000, 4000}, {4500, 4900}, {5000, 9000}, {30'000, 60'000}},
                          {{33'000, 40}, {34'000, 90}, {36'000, 90}});
    const struct {
        const char* name;
        double from;
        double to;
        std::optional<double> heardFrom;
        double target;
    } rows[] = {
        {"the phrase before is nearer", 7, 5.5, {}, 5},
        {"the phrase after is nearer", 6, 4.4, {}, 4.5},
        {"none is near: the clearest gap", 36, 34.2, {}, 34},
        {"nothing is near", 20, 15, {}, 15},
        {"the last phrase is too near to where the step begins", 5.2, 4.7, {}, 4.5},
        {"a step of no seconds goes to the phrase just heard", 5.7, 5.7, {}, 5},
        {"pressed twice", 5, 4.6, {}, 4.5},
        {"before the beginning", 1, -1, {}, -1},
        {"the cycle heard this phrase already", 6.5, 5.4, 5.0, 5.4},
        {"it began later, elsewhere", 6.5, 5.4, 6.0, 5},
    };
    for (const auto& row : rows)
        EXPECT_EQ(sound::phraseStep(phrases, row.from, row.to, row.heardFrom), row.target) << row.name;
}
