#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sound {

// What one column of a picture shows: the loudest sample and the average, as square roots, so that quiet
// speech keeps its shape; 255 is full scale.
struct Peak {
    std::uint8_t most = 0;
    std::uint8_t average = 0;

    bool operator==(const Peak&) const = default;
};

// The shape of a recording at several zoom levels: some 270 bytes for each second. Level 0 has a hundred
// columns a second; a column of each further one sums up four of the one before.
class Waveform {
public:
    static constexpr int columnMs = 10; // of level 0
    static constexpr int ratio = 4;     // of two levels

    Waveform() = default;
    // From its columns of level 0.
    explicit Waveform(std::vector<Peak> columns);

    // The next samples of the recording, until end() is called.
    void add(std::span<const std::int16_t> samples);
    // Completes the last column and the levels above the first.
    void end();

    std::size_t levels() const { return levels_.size(); }
    const std::vector<Peak>& level(std::size_t index) const { return levels_[index]; }
    // The loudest column, as far as there is one.
    std::uint8_t loudest() const;

private:
    void endColumn();
    void sumUp();

    std::vector<std::vector<Peak>> levels_ = std::vector<std::vector<Peak>>(1);
    int most_ = 0;         // of the column that is not complete
    std::int64_t sum_ = 0; // likewise: of the samples without their signs
    int count_ = 0;        // likewise: its samples
};

} // namespace sound
