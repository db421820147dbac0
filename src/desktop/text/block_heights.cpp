#include "desktop/text/block_heights.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace desktop {

namespace {

constexpr std::ptrdiff_t chunkSize = 256; // paragraphs in a new chunk

} // namespace

void BlockHeights::Chunk::sum() {
    height = width = estimates = 0;
    for (const BlockHeight& block : blocks) {
        height += block.whole();
        width = std::max(width, block.width);
        estimates += block.measured ? 0 : 1;
    }
}

int BlockHeights::width() const {
    int widest = 0;
    for (const Chunk& chunk : chunks_)
        widest = std::max(widest, chunk.width);
    return widest;
}

BlockHeights::Place BlockHeights::place(int index) const {
    assert(index >= 0 && index < count_);
    Place place{0, index, 0};
    for (; place.offset >= static_cast<int>(chunks_[place.chunk].blocks.size()); ++place.chunk) {
        place.offset -= static_cast<int>(chunks_[place.chunk].blocks.size());
        place.top += chunks_[place.chunk].height;
    }
    return place;
}

const BlockHeight& BlockHeights::operator[](int index) const {
    const Place at = place(index);
    return chunks_[at.chunk].blocks[static_cast<std::size_t>(at.offset)];
}

int BlockHeights::top(int index) const {
    const Place at = place(index);
    int top = at.top;
    for (int before = 0; before < at.offset; ++before)
        top += chunks_[at.chunk].blocks[static_cast<std::size_t>(before)].whole();
    return top;
}

int BlockHeights::at(int height) const {
    int index = 0;
    for (const Chunk& chunk : chunks_) {
        if (height >= chunk.height) {
            height -= chunk.height;
            index += static_cast<int>(chunk.blocks.size());
            continue;
        }
        for (const BlockHeight& block : chunk.blocks) {
            if (height < block.whole())
                return index;
            height -= block.whole();
            ++index;
        }
    }
    return count_ - 1;
}

int BlockHeights::nextEstimate(int from) const {
    int first = -1; // the first estimate before `from`
    int begin = 0;
    for (const Chunk& chunk : chunks_) {
        const int end = begin + static_cast<int>(chunk.blocks.size());
        for (int index = begin; index < end && chunk.estimates > 0; ++index) {
            if (chunk.blocks[static_cast<std::size_t>(index - begin)].measured)
                continue;
            if (index >= from)
                return index;
            if (first < 0)
                first = index;
            index = std::max(index, std::min(from, end) - 1);
        }
        begin = end;
    }
    return first;
}

void BlockHeights::set(int index, const BlockHeight& height) {
    const Place at = place(index);
    Chunk& chunk = chunks_[at.chunk];
    total_ -= chunk.height;
    chunk.blocks[static_cast<std::size_t>(at.offset)] = height;
    chunk.sum();
    total_ += chunk.height;
}

// Joins the chunks that are touched into one list and cuts that list into chunks again.
void BlockHeights::replace(int first, int removed, const std::vector<BlockHeight>& added) {
    assert(first >= 0 && removed >= 0 && first + removed <= count_);
    if (chunks_.empty())
        chunks_.emplace_back();
    const Place from = first < count_ ? place(first) : Place{chunks_.size() - 1, 0, 0};
    const auto begin = chunks_.begin() + static_cast<std::ptrdiff_t>(from.chunk);
    std::vector<BlockHeight> blocks = std::move(begin->blocks);
    const std::ptrdiff_t offset = first < count_ ? from.offset : std::ssize(blocks);
    auto end = begin + 1;
    for (; std::ssize(blocks) < offset + removed; ++end)
        blocks.insert(blocks.end(), end->blocks.begin(), end->blocks.end());
    for (auto chunk = begin; chunk != end; ++chunk)
        total_ -= chunk->height;
    blocks.erase(blocks.begin() + offset, blocks.begin() + offset + removed);
    blocks.insert(blocks.begin() + offset, added.begin(), added.end());
    count_ += static_cast<int>(added.size()) - removed;

    std::vector<Chunk> fresh;
    const std::ptrdiff_t most = std::ssize(blocks) <= 2 * chunkSize ? 2 * chunkSize : chunkSize;
    for (std::ptrdiff_t at = 0; at < std::ssize(blocks); at += most) {
        Chunk chunk;
        chunk.blocks.assign(blocks.begin() + at, blocks.begin() + std::min(at + most, std::ssize(blocks)));
        chunk.sum();
        total_ += chunk.height;
        fresh.push_back(std::move(chunk));
    }
    const auto place = chunks_.erase(begin, end);
    chunks_.insert(place, std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
}

} // namespace desktop
