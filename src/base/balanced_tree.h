#pragma once

#include <cstdint>
#include <utility>

namespace base {

// The balancing of a persistent tree whose nodes are shared by reference counts, in logarithmic time. `Store`
// derives from it and declares it a friend. It has `nodes_` with the members left and right, height(id) (0
// for leaves and the empty tree, whose id is 0), retain(id), release(id), and makeNode(left, right) for sides
// whose heights differ by at most one. Arguments named Owned pass on a reference, as do results.
template <typename Store>
class BalancedTree {
protected:
    using Id = std::uint32_t;
    using Owned = std::uint32_t;

    // Concatenates two trees of any heights.
    Owned join(Owned left, Owned right) {
        if (left == 0 || right == 0)
            return left | right;
        if (store().height(left) > store().height(right) + 1) {
            const auto [outer, inner] = sides(left);
            return balancedToTheLeft(outer, join(inner, right));
        }
        if (store().height(right) > store().height(left) + 1) {
            const auto [inner, outer] = sides(right);
            return balancedToTheRight(join(left, inner), outer);
        }
        return store().makeNode(left, right);
    }

private:
    Store& store() { return static_cast<Store&>(*this); }

    // The two sides of a node, which is released.
    std::pair<Owned, Owned> sides(Owned id) {
        const std::pair both(store().retain(store().nodes_[id].left),
                             store().retain(store().nodes_[id].right));
        store().release(id);
        return both;
    }

    // Makes a node of two sides, of which the right one may be up to two levels higher; restores the balance.
    Owned balancedToTheLeft(Owned left, Owned right) {
        if (store().height(right) <= store().height(left) + 1)
            return store().makeNode(left, right);
        const auto [inner, outer] = sides(right);
        if (store().height(inner) <= store().height(outer))
            return store().makeNode(store().makeNode(left, inner), outer);
        const auto [first, second] = sides(inner);
        const Owned newLeft = store().makeNode(left, first);
        return store().makeNode(newLeft, store().makeNode(second, outer));
    }

    // The mirror image of balancedToTheLeft.
    Owned balancedToTheRight(Owned left, Owned right) {
        if (store().height(left) <= store().height(right) + 1)
            return store().makeNode(left, right);
        const auto [outer, inner] = sides(left);
        if (store().height(inner) <= store().height(outer))
            return store().makeNode(outer, store().makeNode(inner, right));
        const auto [first, second] = sides(inner);
        const Owned newLeft = store().makeNode(outer, first);
        return store().makeNode(newLeft, store().makeNode(second, right));
    }
};

} // namespace base
