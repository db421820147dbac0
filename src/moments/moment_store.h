#pragma once

#include "base/balanced_tree.h"
#include "base/slab.h"
#include "moments/moment.h"

#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace moments {

// Letters in a row that share a moment.
struct Run {
    std::uint32_t length = 0; // UTF-16 units
    std::uint32_t moment = 0; // number of the moment; 0: none

    bool operator==(const Run&) const = default;
};

// The letters of a text with their moments, and pieces taken out of it, as balanced trees over runs that
// share what they have in common. It gives out trees by number; who holds one gives it back by `release`.
// Moments are never dropped: a word that undo brings back still has its own.
class MomentStore : private base::BalancedTree<MomentStore> {
    friend class base::BalancedTree<MomentStore>;

public:
    // A tree by its number. 0 is the empty one.
    using Id = std::uint32_t;
    // One that the function takes over, or hands over to its caller.
    using Owned = std::uint32_t;

    // Letters that went or came. Those of one moment, which most are, need no tree.
    struct Piece {
        std::uint32_t length = 0;
        std::uint32_t content = uniform; // a tree, or a moment behind the mark for those of one

        bool isUniform() const { return (content & uniform) == uniform; }
    };
    static constexpr std::uint32_t uniform = 3U << 30U;

    MomentStore() = default;
    MomentStore(const MomentStore&) = delete;
    MomentStore& operator=(const MomentStore&) = delete;

    // The number of a new moment.
    std::uint32_t add(const Moment& moment);
    const Moment& moment(std::uint32_t number) const { return moments_[number]; }

    std::uint32_t length(Id id) const;
    Owned retain(Id id);
    void release(Owned id);

    static Piece uniformPiece(std::uint32_t length, std::uint32_t moment) {
        return {length, uniform | moment};
    }
    Piece piece(const std::vector<Run>& runs);
    // A piece of its own from a tree or from another piece: `count` letters at `from`.
    Piece slice(Id id, std::uint32_t from, std::uint32_t count);
    Piece slice(const Piece& piece, std::uint32_t from, std::uint32_t count);
    void release(const Piece& piece);

    // The tree with `inserted` in the place of `removed` letters; all of them lie inside of it.
    Owned replaced(Id id, std::uint32_t position, std::uint32_t removed, const Piece& inserted);

    // The run that holds the letter at this place, and where it begins, as far as it lies in one leaf.
    std::pair<std::uint32_t, Run> runAt(Id id, std::uint32_t position) const;
    // The runs from `from` on, each with its place, cut off at both ends, until `take` answers false.
    using Take = std::function<bool(std::uint32_t position, const Run& run)>;
    void forEach(Id id, std::uint32_t from, std::uint32_t count, const Take& take) const;
    void forEach(const Piece& piece, const Take& take) const;

    // The nearest letter with a moment: the first at or behind the place, the last before it. `length` for
    // none.
    std::uint32_t timedFrom(Id id, std::uint32_t position) const;
    std::uint32_t timedBefore(Id id, std::uint32_t position) const;
    // The first letter of those whose moment begins last, but not behind `ms`. `length` for none.
    std::uint32_t heardAt(Id id, std::int32_t ms) const;

    // Bytes that all of it takes.
    std::size_t bytes() const { return leaves_.bytes() + nodes_.bytes() + moments_.bytes(); }

private:
    static constexpr Id leafFlag = 1U << 31U;
    static constexpr std::size_t capacity = 14; // runs in a leaf
    static constexpr std::int32_t never = INT32_MAX;

    // From the earliest to the latest beginning of the moments in a tree.
    struct Span {
        std::int32_t earliest = never;
        std::int32_t latest = -1;
    };

    struct Leaf {
        std::uint32_t references;
        std::uint32_t count : 8;
        std::uint32_t length : 24;
        std::array<Run, capacity> runs;
    };

    // The heights of the two sides differ by one at most.
    struct Node {
        std::uint32_t references : 26;
        std::uint32_t height : 6;
        std::uint32_t length;
        Id left;
        Id right;
        Span span;
    };

    // Runs on their way into leaves: those that follow each other with one moment are joined.
    struct Runs {
        std::array<Run, 2 * capacity + 3> runs;
        std::size_t count = 0;

        void add(std::uint32_t length, std::uint32_t moment);
    };

    static bool isLeaf(Id id) { return (id & leafFlag) != 0; }
    const Leaf& leaf(Id id) const { return leaves_[id & ~leafFlag]; }
    std::uint32_t height(Id id) const { return id == 0 || isLeaf(id) ? 0 : nodes_[id].height; }
    Span span(Id id) const;

    Owned makeLeaf(const Run* runs, std::size_t count);
    Owned makeLeaves(const Runs& runs);
    Owned makeNode(Owned left, Owned right);
    Owned build(const Run* runs, std::size_t count);
    Owned exchanged(Id id, std::uint32_t position, std::uint32_t removed, std::uint32_t inserted,
                    std::uint32_t moment);
    bool visit(Id id, std::uint32_t at, std::uint32_t from, std::uint32_t end, const Take& take) const;
    void heard(Id id, std::uint32_t at, std::int32_t ms, std::pair<std::int32_t, std::uint32_t>& best) const;

    base::Slab<Leaf> leaves_;
    base::Slab<Node> nodes_;
    base::Slab<Moment> moments_;
};

} // namespace moments
