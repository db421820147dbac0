#pragma once

#include <cstddef>
#include <vector>

namespace desktop {

// The space that one paragraph takes on the page, in pixels.
struct BlockHeight {
    int gap = 0;           // space above the paragraph
    int height = 0;        // of all its lines
    int width = 0;         // of its longest line, including the margins
    bool measured = false; // false: estimated

    int whole() const { return gap + height; }
};

// The heights of all paragraphs of a document: finds the place of a paragraph, and the paragraph at a place,
// in a time that hardly grows with their number.
class BlockHeights {
public:
    int count() const { return count_; }
    int total() const { return total_; }
    // Width of the widest paragraph, in pixels.
    int width() const;
    const BlockHeight& operator[](int index) const;
    // Total height of all paragraphs above this one, in pixels.
    int top(int index) const;
    // The paragraph at this height (pixels), or the first or last one if the height lies outside. Requires at
    // least one paragraph.
    int at(int height) const;
    // The first paragraph at or after `from` whose height is an estimate, wrapping around at the end; -1 if
    // all are measured.
    int nextEstimate(int from) const;

    void set(int index, const BlockHeight& height);
    // Replaces `removed` paragraphs from `first` on by `added`.
    void replace(int first, int removed, const std::vector<BlockHeight>& added);

private:
    // A few hundred paragraphs with their totals.
    struct Chunk {
        std::vector<BlockHeight> blocks;
        int height = 0;
        int width = 0;
        int estimates = 0;

        void sum();
    };
    // A paragraph as chunk and index in the chunk, with the height of everything above the chunk.
    struct Place {
        std::size_t chunk = 0;
        int offset = 0;
        int top = 0;
    };
    Place place(int index) const;

    std::vector<Chunk> chunks_; // none is empty
    int count_ = 0;
    int total_ = 0;
};

} // namespace desktop
