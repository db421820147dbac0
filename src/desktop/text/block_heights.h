#pragma once

#include <cstddef>
#include <vector>

namespace desktop {

// What one paragraph takes of the page, in pixels.
struct BlockHeight {
    int gap = 0;           // in front of it
    int height = 0;        // of its lines
    int width = 0;         // of its longest line, with the margins
    bool measured = false; // else estimated

    int whole() const { return gap + height; }
};

// The heights of all paragraphs of a document: where one lies, and which one lies at a place, in a time that
// hardly grows with their number.
class BlockHeights {
public:
    int count() const { return count_; }
    int total() const { return total_; }
    // Of the widest paragraph.
    int width() const;
    const BlockHeight& operator[](int index) const;
    // Of all that lies in front of the paragraph.
    int top(int index) const;
    // The paragraph at this height; the first or the last one for a height outside. There must be one.
    int at(int height) const;
    // The first one from there on, in a ring, that is estimated; -1 when all are measured.
    int nextEstimate(int from) const;

    void set(int index, const BlockHeight& height);
    // Puts `added` in the place of so many paragraphs.
    void replace(int first, int removed, const std::vector<BlockHeight>& added);

private:
    // Some hundred paragraphs with their sums.
    struct Chunk {
        std::vector<BlockHeight> blocks;
        int height = 0;
        int width = 0;
        int estimates = 0;

        void sum();
    };
    // A paragraph by its chunk and its number in it, and what lies in front of the chunk.
    struct Place {
        std::size_t chunk = 0;
        int offset = 0;
        int top = 0;
    };
    Place place(int index) const;

    std::vector<Chunk> chunks_; // none of them empty
    int count_ = 0;
    int total_ = 0;
};

} // namespace desktop
