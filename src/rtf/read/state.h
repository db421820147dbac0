// The parser's state within a group.
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

// Character formats with the numbers of the file's own tables.
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

// Paragraph formats; lists of control words are nodes of a WordChain.
struct ParagraphState {
    std::int32_t measures[5] = {}; // twips, by Measure
    std::int32_t list = noList;    // number in the file's list table
    std::int32_t listLevel = noList;
    std::uint32_t keptWords = none;
    Alignment alignment = Alignment::Left;
    bool bullet = false;
    bool pageBreakBefore = false;
};

// The state that a closing brace restores.
struct GroupState {
    CharState letters;
    ParagraphState paragraph;
    std::uint32_t link = none;        // index in the parser's links
    std::uint32_t field = none;       // the innermost field around the group
    std::uint32_t instruction = none; // the field whose instruction this text is part of
    std::int32_t fallback = 1;        // number of fallback letters after a \u (set by \uc)
    Destination destination = Destination::Body;
    Destination outer = Destination::Body; // destination around a group with two alternatives
};

// A field being read.
struct FieldState {
    Text instruction;
    Destination outer = Destination::Body;
    bool hasResult = false;
};

// A link of the file; added to the document with its first letter.
struct LinkState {
    Text target;
    std::uint32_t index = none; // in the document's links
};

// Lists of control words that share common prefixes, as the nested groups of a file do. A list is identified
// by its last node.
class WordChain {
public:
    // Returns the list `last` extended by one word. A word that would make the list longer than 256 bytes is
    // dropped.
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
        std::uint32_t length; // of the list up to this word, in bytes
    };
    std::vector<Node> nodes_;
};

} // namespace rtf
