#pragma once

#include "base/balanced_tree.h"
#include "base/slab.h"
#include "base/text.h"

#include <array>
#include <cstdint>
#include <utility>

namespace editor {

// The shared storage of the snapshots of one text: a persistent tree of short pieces. Changing a text copies
// only the path to the changed piece, about 300 bytes per typed letter. Full copies would take 40 GB for a
// hundred thousand letters typed into 200 KB. Snapshots must not outlive their store.
class SnapshotStore : private base::BalancedTree<SnapshotStore> {
    friend class base::BalancedTree<SnapshotStore>;

public:
    SnapshotStore() = default;
    SnapshotStore(const SnapshotStore&) = delete;
    SnapshotStore& operator=(const SnapshotStore&) = delete;

    // Memory of all snapshots in this store, in bytes.
    std::size_t bytes() const { return leaves_.bytes() + nodes_.bytes(); }

private:
    friend class SnapshotText;

    // The number of a leaf or a node, 0 for the empty text; numbers instead of pointers keep a node at 16
    // bytes. A function takes ownership of the ids that it receives as `Owned`, and passes on ownership of
    // the one that it returns.
    using Id = std::uint32_t;
    using Owned = std::uint32_t;

    static constexpr Id leafFlag = 1U << 31U;
    static constexpr std::size_t capacity = 28; // units in a leaf; makes a leaf 64 bytes

    struct Leaf {
        std::uint32_t references;
        std::uint32_t length;
        std::array<char16_t, capacity> units;
    };

    // An inner node: longer than a leaf can be; the heights of its two sides differ by at most one.
    struct Node {
        std::uint32_t references : 26;
        std::uint32_t height : 6;
        std::uint32_t length;
        Id left;
        Id right;
    };

    static bool isLeaf(Id id) { return (id & leafFlag) != 0; }
    const Leaf& leaf(Id id) const { return leaves_[id & ~leafFlag]; }
    std::uint32_t length(Id id) const;
    std::uint32_t height(Id id) const { return id == 0 || isLeaf(id) ? 0 : nodes_[id].height; }

    Owned retain(Id id);
    void release(Owned id);

    Owned makeLeaf(base::TextView text);
    Owned makeNode(Owned left, Owned right);
    // Builds a balanced tree of this text.
    Owned build(base::TextView text);
    Owned replaced(Id id, std::uint32_t position, std::uint32_t removed, base::TextView inserted);
    void copy(Id id, std::uint32_t position, std::uint32_t count, char16_t*& to) const;

    base::Slab<Leaf> leaves_;
    base::Slab<Node> nodes_;
};

// One state of a text. Copying is free and shares everything. A change leaves all copies as they are; its
// time and memory grow with the logarithm of the text's length. Positions and lengths are UTF-16 units.
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
    // The whole text, or the part within this range, clamped to the text.
    base::Text text() const { return text(0, length()); }
    base::Text text(std::int32_t position, std::int32_t count) const;

    // Replaces `removed` units at `position`, which must lie inside the text, by `inserted`. Unchanged units
    // at both ends of the range stay shared.
    void replace(std::int32_t position, std::int32_t removed, base::TextView inserted);

private:
    SnapshotStore* store_;
    SnapshotStore::Owned root_;
};

} // namespace editor
