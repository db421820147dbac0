#pragma once

#include "base/text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace aids {

// What the check before delivery looks for, in the order of its list.
enum class FindingKind : std::uint8_t {
    Doubtful,
    Unclear,
    StampBackwards,
    StampBeyond,
    Speaker,
    Blanks,
    Unclosed,
    Misspelled
};
inline constexpr std::size_t findingKinds = 8;

// A part of the text that may have to be corrected.
struct Finding {
    FindingKind kind = FindingKind::Doubtful;
    std::int32_t position = 0; // UTF-16 units
    std::int32_t length = 0;
    base::Text letters; // that are there
    base::Text before;  // around it in its paragraph
    base::Text after;
    base::Text other; // the usual spelling of a speaker
    int count = 1;    // of a misspelled word: how often it is there

    bool operator==(const Finding&) const = default;
};

// Findings as they are collected. Of each kind, no more are kept than anybody looks at.
class Findings {
public:
    static constexpr std::size_t mostOfKind = 5000;

    // A part of `text`, which begins at `position` of the whole text and has the paragraph around it. Returns
    // its index, or the number of findings if it was not kept.
    std::size_t add(FindingKind kind, base::TextView text, std::int32_t position, std::size_t begin,
                    std::size_t length);
    void add(Finding finding);

    Finding& operator[](std::size_t index) { return all_[index]; }
    std::size_t size() const { return all_.size(); }
    // All, by kinds and in the order of the text. None are left here.
    std::vector<Finding> take();

private:
    std::vector<Finding> all_;
    std::array<std::size_t, findingKinds> counts_{};
};

} // namespace aids
