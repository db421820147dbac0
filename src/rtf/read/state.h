// What the reader knows at each depth of groups.
#pragma once

#include "rtf/document.h"
#include "rtf/read/words.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace rtf {

// The look of letters in the file's own numbers.
struct CharState {
    std::int32_t font = 0;
    std::int32_t colour = -1;     // index, -1 for automatic
    std::int32_t background = -1; // index, -1 for none
    std::uint16_t size = 24;      // half-points
    std::uint8_t marks = 0;
    Raised raised = Raised::No;

    bool operator==(const CharState&) const = default;
};

inline constexpr std::int32_t noList = std::numeric_limits<std::int32_t>::min();

// The stand of a paragraph; lists of words are nodes in a WordChain.
struct ParagraphState {
    std::int32_t measures[5] = {}; // twips, by Measure
    std::int32_t list = noList;    // number in the table of lists
    std::int32_t listLevel = noList;
    std::uint32_t keptWords = none;
    Alignment alignment = Alignment::Left;
    bool bullet = false;
    bool pageBreakBefore = false;
};

// All that a closing brace brings back.
struct GroupState {
    CharState letters;
    ParagraphState paragraph;
    std::uint32_t link = none;        // index in the parser's links
    std::uint32_t field = none;       // the field in which the group lies
    std::uint32_t instruction = none; // the field whose instruction the text belongs to
    std::int32_t fallback = 1;        // how many letters stand in for one \u
    Destination destination = Destination::Body;
    Destination outer = Destination::Body; // of the group that holds two alternatives
};

// A field while it is read.
struct FieldState {
    Text instruction;
    Destination outer = Destination::Body;
    bool hasResult = false;
};

// A link of the file; it enters the document with its first letter.
struct LinkState {
    Text target;
    std::uint32_t index = none; // in the document's links
};

// Lists of words that share their beginnings, as the groups of a file do: each list is known by its last
// word.
class WordChain {
public:
    // The list `last` with a word more. Lists stay under 256 bytes; what is more is left out.
    std::uint32_t append(std::uint32_t last, std::string_view word) {
        constexpr std::size_t longestList = 256;
        const std::size_t length = word.size() + (last == none ? 0 : nodes_[last].length);
        if (length > longestList)
            return last;
        nodes_.push_back({word, last, static_cast<std::uint32_t>(length)});
        return static_cast<std::uint32_t>(nodes_.size() - 1);
    }

    std::string words(std::uint32_t last) const {
        std::string all(last == none ? 0 : nodes_[last].length, ' ');
        std::size_t end = all.size();
        for (std::uint32_t node = last; node != none; node = nodes_[node].previous) {
            end -= nodes_[node].word.size();
            all.replace(end, nodes_[node].word.size(), nodes_[node].word);
        }
        return all;
    }

private:
    struct Node {
        std::string_view word;
        std::uint32_t previous;
        std::uint32_t length; // of the list up to here, in bytes
    };
    std::vector<Node> nodes_;
};

} // namespace rtf
