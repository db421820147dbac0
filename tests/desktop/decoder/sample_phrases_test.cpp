// Where steps back land in the sample, whose words have known moments.
#include "desktop/eventually.h"
#include "fakes/temporary_folder.h"
#include "lav_decoder.h"
#include "sound/open_map.h"
#include "sound/phrase_step.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

namespace {

// Makes the map of a recording, and keeps its samples.
struct Listener : sound::MapMaker {
    using MapMaker::MapMaker;
    void add(std::span<const std::int16_t> more) override {
        samples.insert(samples.end(), more.begin(), more.end());
        MapMaker::add(more);
    }
    // The loudness of a fiftieth of a second around this moment, in dB below full scale.
    double loudness(double seconds) const {
        const auto middle = static_cast<std::size_t>(std::lround(seconds * sound::samplesPerSec));
        double sum = 0;
        for (std::size_t i = std::max<std::size_t>(middle, 160) - 160;
             i < std::min(middle + 160, samples.size()); ++i)
            sum += std::pow(samples[i] / 32768.0, 2);
        return 10 * std::log10(sum / 320 + 1e-12);
    }
    std::vector<std::int16_t> samples;
};

std::vector<double> wordMoments() {
    std::ifstream file(SAMPLE_WORDS);
    std::vector<double> moments;
    std::string word;
    for (double ms = 0; file >> ms >> word;)
        moments.push_back(ms / 1000);
    return moments;
}

} // namespace

TEST(SamplePhrases, FiftyStepsBack_NeverLandInsideOfAWord) {
    const fakes::TemporaryFolder folder;
    const base::Text sample = base::fromUtf8(SAMPLE_FILE);
    const auto listener =
        std::make_shared<Listener>(*sound::Recording::at(sample), sound::MapFolder(folder.text("Maps")));
    desktop::LavDecoder decoder;
    std::string failure = "no end";
    decoder.Finished = [&](const base::Text& reason) { failure = base::toUtf8(reason); };
    decoder.listen(sample, listener);
    ASSERT_TRUE(fakes::eventually([&] { return listener->map() != nullptr; })) << failure;

    const std::vector<double> words = wordMoments();
    ASSERT_GT(words.size(), 150U);
    // A word has not begun yet, or nothing is heard.
    const auto isBetweenWords = [&](double moment) {
        return listener->loudness(moment) < -50 || std::ranges::any_of(words, [&](double word) {
                   return moment < word + 0.05 && moment > word - 0.08;
               });
    };
    std::mt19937 random; // NOLINT(cert-msc51-cpp): the same positions in each run
    int insideWithout = 0;
    for (int i = 0; i < 50; ++i) {
        const double from = 4 + static_cast<double>(random() % 60'000) / 1000;
        const double to = from - 1 - static_cast<double>(random() % 3);
        insideWithout += isBetweenWords(to) ? 0 : 1;
        const double target = sound::phraseStep(listener->map()->phrases, from, to, std::nullopt);
        EXPECT_NEAR(target, to, 1.5);
        EXPECT_TRUE(isBetweenWords(target)) << "from " << from << " to " << target;
    }
    EXPECT_GT(insideWithout, 20);
}

TEST(SamplePhrases, Decoder_FailsAndStops_WithoutAMap) {
    const fakes::TemporaryFolder folder;
    folder.write("text.mp3", "no sound at all");
    desktop::LavDecoder decoder;
    sound::OpenMap map(decoder, sound::MapFolder(folder.text("Maps")));
    int changes = 0;
    map.Changed = [&] { ++changes; };
    map.want(folder.text("text.mp3"));
    EXPECT_TRUE(fakes::eventually([&] { return !map.isMaking(); }));
    EXPECT_EQ(map.map(), nullptr);
    for (int i = 0; i < 10; ++i) { // opened quickly one after the other
        const std::string name = "copy" + std::to_string(i);
        std::filesystem::copy(SAMPLE_FILE, folder.path() / name);
        map.want(folder.text(name));
    }
    EXPECT_TRUE(fakes::eventually([&] { return map.map() != nullptr; }));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path() / "Maps"), {}), 1);
}
