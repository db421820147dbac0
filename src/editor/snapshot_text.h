#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace editor {

// What the snapshots of one text share: a tree of short pieces, of which a changed text copies no more than
// the path to the piece that changed. A copy of the whole text for each letter typed would take 40 GB for a
// hundred thousand letters in 200 KB; these take some 300 bytes a letter. Snapshots must not outlive their
// store.
class SnapshotStore {
public:
    SnapshotStore() = default;
    SnapshotStore(const SnapshotStore&) = delete;
    SnapshotStore& operator=(const SnapshotStore&) = delete;

    // Bytes that all snapshots of this store take together.
    std::size_t bytes() const { return leaves_.bytes() + nodes_.bytes(); }

private:
    friend class SnapshotText;

    // A piece or a node by its number, so that a node with both of its children takes 16 bytes; 0 is the
    // empty text. A function takes over the ids that it is given as `Owned`, and hands over the one that it
    // returns.
    using Id = std::uint32_t;
    using Owned = std::uint32_t;

    static constexpr Id leafFlag = 1U << 31U;
    static constexpr std::size_t capacity = 28; // units in a leaf, which makes it 64 bytes

    struct Leaf {
        std::uint32_t references;
        std::uint32_t length;
        std::array<char16_t, capacity> units;
    };

    // Longer than a leaf can be; the heights of the two sides differ by one at most.
    struct Node {
        std::uint32_t references : 26;
        std::uint32_t height : 6;
        std::uint32_t length;
        Id left;
        Id right;
    };

    // Things of one kind by number, from 1 on, in blocks that never move.
    template <typename Thing>
    class Slab {
    public:
        Thing& operator[](std::uint32_t number) { return blocks_[number / blockSize][number % blockSize]; }
        const Thing& operator[](std::uint32_t number) const {
            return blocks_[number / blockSize][number % blockSize];
        }
        std::uint32_t take();
        void giveBack(std::uint32_t number) { (*this)[number].length = std::exchange(free_, number); }
        std::size_t bytes() const { return blocks_.size() * blockSize * sizeof(Thing); }

    private:
        static constexpr std::uint32_t blockSize = 4096;

        std::vector<std::unique_ptr<Thing[]>> blocks_;
        std::uint32_t free_ = 0; // given back last; its length is the number of the one given back before
        std::uint32_t next_ = 1; // never taken yet
    };

    static bool isLeaf(Id id) { return (id & leafFlag) != 0; }
    const Leaf& leaf(Id id) const { return leaves_[id & ~leafFlag]; }
    std::uint32_t length(Id id) const;
    std::uint32_t height(Id id) const { return id == 0 || isLeaf(id) ? 0 : nodes_[id].height; }

    Owned retain(Id id);
    void release(Owned id);

    Owned makeLeaf(base::TextView text);
    Owned makeNode(Owned left, Owned right);
    // The text as a tree of its own.
    Owned build(base::TextView text);
    // The two texts one behind the other.
    Owned join(Owned left, Owned right);
    Owned balancedToTheLeft(Owned left, Owned right);
    Owned balancedToTheRight(Owned left, Owned right);
    // The two sides of a node that is given up.
    std::pair<Owned, Owned> sides(Owned id);
    Owned replaced(Id id, std::uint32_t position, std::uint32_t removed, base::TextView inserted);
    void copy(Id id, std::uint32_t position, std::uint32_t count, char16_t*& to) const;

    Slab<Leaf> leaves_;
    Slab<Node> nodes_;
};

// One state of a text. A copy costs nothing and shares everything; a change of it leaves all copies as they
// are and takes a time and a memory that grow with the logarithm of the text alone. Positions and lengths are
// UTF-16 units.
class SnapshotText {
public:
    explicit SnapshotText(SnapshotStore& store, base::TextView text = {});
    SnapshotText(const SnapshotText& other) : store_(other.store_), root_(store_->retain(other.root_)) {}
    SnapshotText(SnapshotText&& other) noexcept
        : store_(other.store_), root_(std::exchange(other.root_, 0)) {}
    SnapshotText& operator=(SnapshotText other) noexcept {
        std::swap(store_, other.store_);
        std::swap(root_, other.root_);
        return *this;
    }
    ~SnapshotText() { store_->release(root_); }

    std::int32_t length() const { return static_cast<std::int32_t>(store_->length(root_)); }
    // The whole text, and a stretch of it: one that reaches outside is cut off there.
    base::Text text() const { return text(0, length()); }
    base::Text text(std::int32_t position, std::int32_t count) const;

    // Puts `inserted` in the place of `removed` units; all of them lie inside of the text. What is the same
    // before and after is still shared.
    void replace(std::int32_t position, std::int32_t removed, base::TextView inserted);

private:
    SnapshotStore* store_;
    SnapshotStore::Owned root_;
};

} // namespace editor
