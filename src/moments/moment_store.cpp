#include "moments/moment_store.h"

#include <algorithm>
#include <cassert>

namespace moments {

namespace {

// A leaf counts its letters in 24 bits: a longer run is cut.
constexpr std::uint32_t longestRun = 1U << 20U;

} // namespace

std::uint32_t MomentStore::add(const Moment& moment) {
    const std::uint32_t number = moments_.take();
    moments_[number] = moment;
    return number;
}

std::uint32_t MomentStore::length(Id id) const {
    return id == 0 ? 0 : isLeaf(id) ? leaf(id).length : nodes_[id].length;
}

MomentStore::Span MomentStore::span(Id id) const {
    if (id == 0)
        return {};
    if (!isLeaf(id))
        return nodes_[id].span;
    Span span;
    const Leaf& all = leaf(id);
    for (std::size_t i = 0; i < all.count; ++i) {
        if (all.runs[i].moment == 0)
            continue;
        const std::int32_t start = moments_[all.runs[i].moment].start;
        span = {std::min(span.earliest, start), std::max(span.latest, start)};
    }
    return span;
}

MomentStore::Owned MomentStore::retain(Id id) {
    if (isLeaf(id))
        ++leaves_[id & ~leafFlag].references;
    else if (id != 0)
        ++nodes_[id].references;
    return id;
}

void MomentStore::release(Owned id) {
    if (id == 0)
        return;
    if (isLeaf(id)) {
        if (--leaves_[id & ~leafFlag].references == 0)
            leaves_.giveBack(id & ~leafFlag);
        // NOLINTNEXTLINE(bugprone-narrowing-conversions): a bit field counts as an int there
    } else if (--nodes_[id].references == 0) {
        release(nodes_[id].left);
        release(nodes_[id].right);
        nodes_.giveBack(id);
    }
}

void MomentStore::release(const Piece& piece) {
    if (!piece.isUniform())
        release(piece.content);
}

void MomentStore::Runs::add(std::uint32_t length, std::uint32_t moment) {
    if (length == 0)
        return;
    if (count > 0 && runs[count - 1].moment == moment && runs[count - 1].length + length <= longestRun)
        runs[count - 1].length += length;
    else
        runs[count++] = {length, moment};
}

MomentStore::Owned MomentStore::makeLeaf(const Run* runs, std::size_t count) {
    if (count == 0)
        return 0;
    const std::uint32_t number = leaves_.take();
    Leaf& leaf = leaves_[number];
    leaf.references = 1;
    leaf.count = static_cast<std::uint32_t>(count) & 0xFFU;
    std::copy_n(runs, count, leaf.runs.begin());
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < count; ++i)
        length += runs[i].length;
    leaf.length = length & 0xFFFFFFU;
    return number | leafFlag;
}

MomentStore::Owned MomentStore::makeLeaves(const Runs& runs) {
    if (runs.count <= capacity)
        return makeLeaf(runs.runs.data(), runs.count);
    const std::size_t half = runs.count / 2;
    const Owned left = makeLeaf(runs.runs.data(), half);
    return makeNode(left, makeLeaf(runs.runs.data() + half, runs.count - half));
}

MomentStore::Owned MomentStore::makeNode(Owned left, Owned right) {
    if (isLeaf(left) && isLeaf(right) && leaf(left).count + leaf(right).count <= capacity) {
        Runs runs;
        for (const Id id : {left, right})
            for (std::size_t i = 0; i < leaf(id).count; ++i)
                runs.add(leaf(id).runs[i].length, leaf(id).runs[i].moment);
        release(left);
        release(right);
        return makeLeaf(runs.runs.data(), runs.count);
    }
    const Span first = span(left);
    const Span second = span(right);
    const std::uint32_t number = nodes_.take();
    Node& node = nodes_[number];
    node.references = 1;
    node.height = (std::max(height(left), height(right)) + 1) & 63U;
    node.length = length(left) + length(right);
    node.left = left;
    node.right = right;
    node.span = {std::min(first.earliest, second.earliest), std::max(first.latest, second.latest)};
    return number;
}

// Leaves that are full: a text that comes as a whole takes the least.
MomentStore::Owned MomentStore::build(const Run* runs, std::size_t count) {
    if (count <= capacity)
        return makeLeaf(runs, count);
    const std::size_t half = (count / 2 + capacity - 1) / capacity * capacity;
    const Owned left = build(runs, half);
    return join(left, build(runs + half, count - half));
}

// Letters of one moment in the place of others.
MomentStore::Owned MomentStore::exchanged(Id id, std::uint32_t position, std::uint32_t removed,
                                          std::uint32_t inserted, std::uint32_t moment) {
    if (removed == 0 && inserted == 0)
        return retain(id);
    if (removed == length(id)) {
        const Run run{inserted, moment};
        return makeLeaf(&run, inserted > 0 ? 1 : 0);
    }
    const std::uint32_t end = position + removed;
    if (isLeaf(id)) {
        const Leaf& all = leaf(id);
        Runs runs;
        std::uint32_t at = 0;
        bool put = false;
        for (std::size_t i = 0; i < all.count; ++i) {
            const Run& run = all.runs[i];
            const std::uint32_t behind = at + run.length;
            if (at < position)
                runs.add(std::min(behind, position) - at, run.moment);
            if (!put && behind >= position) {
                runs.add(inserted, moment);
                put = true;
            }
            if (behind > end)
                runs.add(behind - std::max(at, end), run.moment);
            at = behind;
        }
        return makeLeaves(runs);
    }
    const Id left = nodes_[id].left;
    const Id right = nodes_[id].right;
    const std::uint32_t middle = length(left);
    if (end <= middle)
        return join(exchanged(left, position, removed, inserted, moment), retain(right));
    if (position >= middle)
        return join(retain(left), exchanged(right, position - middle, removed, inserted, moment));
    const Owned first = exchanged(left, position, middle - position, inserted, moment);
    return join(first, exchanged(right, 0, end - middle, 0, 0));
}

MomentStore::Owned MomentStore::replaced(Id id, std::uint32_t position, std::uint32_t removed,
                                         const Piece& inserted) {
    const std::uint32_t all = length(id);
    assert(position <= all && removed <= all - position);
    if (inserted.isUniform() && inserted.length <= longestRun)
        return exchanged(id, position, removed, inserted.length, inserted.content & ~uniform);
    Owned middle = 0;
    forEach(inserted, [&](std::uint32_t, const Run& run) {
        if (inserted.isUniform())
            middle = join(middle, makeLeaf(&run, 1));
        return true;
    });
    if (!inserted.isUniform())
        middle = retain(inserted.content);
    const Owned before = exchanged(id, position, all - position, 0, 0);
    const Owned behind = exchanged(id, 0, position + removed, 0, 0);
    return join(join(before, middle), behind);
}

MomentStore::Piece MomentStore::piece(const std::vector<Run>& runs) {
    std::vector<Run> joined;
    std::uint32_t length = 0;
    for (const Run& run : runs) {
        length += run.length;
        for (std::uint32_t left = run.length; left > 0;) {
            if (!joined.empty() && joined.back().moment == run.moment &&
                joined.back().length + left <= longestRun) {
                joined.back().length += left;
                break;
            }
            joined.push_back({std::min(left, longestRun), run.moment});
            left -= joined.back().length;
        }
    }
    if (joined.size() <= 1)
        return uniformPiece(length, joined.empty() ? 0 : joined.front().moment);
    return {length, build(joined.data(), joined.size())};
}

MomentStore::Piece MomentStore::slice(Id id, std::uint32_t from, std::uint32_t count) {
    if (count == 0)
        return {};
    const auto [begin, run] = runAt(id, from);
    if (begin + run.length >= from + count)
        return uniformPiece(count, run.moment);
    const Owned head = exchanged(id, from + count, length(id) - from - count, 0, 0);
    const Owned both = exchanged(head, 0, from, 0, 0);
    release(head);
    return {count, both};
}

MomentStore::Piece MomentStore::slice(const Piece& piece, std::uint32_t from, std::uint32_t count) {
    if (piece.isUniform())
        return {count, piece.content};
    return slice(piece.content, from, count);
}

std::pair<std::uint32_t, Run> MomentStore::runAt(Id id, std::uint32_t position) const {
    if (position >= length(id))
        return {position, {}};
    std::uint32_t at = 0;
    while (!isLeaf(id)) {
        const std::uint32_t middle = at + length(nodes_[id].left);
        id = position < middle ? nodes_[id].left : nodes_[id].right;
        at = position < middle ? at : middle;
    }
    const Leaf& all = leaf(id);
    std::size_t i = 0;
    while (at + all.runs[i].length <= position)
        at += all.runs[i++].length;
    return {at, all.runs[i]};
}

bool MomentStore::visit(Id id, std::uint32_t at, std::uint32_t from, std::uint32_t end,
                        const Take& take) const {
    if (id == 0 || at >= end || at + length(id) <= from)
        return true;
    if (!isLeaf(id))
        return visit(nodes_[id].left, at, from, end, take) &&
               visit(nodes_[id].right, at + length(nodes_[id].left), from, end, take);
    const Leaf& all = leaf(id);
    for (std::size_t i = 0; i < all.count; at += all.runs[i++].length) {
        const std::uint32_t first = std::max(at, from);
        const std::uint32_t last = std::min(at + all.runs[i].length, end);
        if (first < last && !take(first, {last - first, all.runs[i].moment}))
            return false;
    }
    return true;
}

void MomentStore::forEach(Id id, std::uint32_t from, std::uint32_t count, const Take& take) const {
    visit(id, 0, from, from + count, take);
}

void MomentStore::forEach(const Piece& piece, const Take& take) const {
    if (!piece.isUniform()) {
        forEach(piece.content, 0, piece.length, take);
        return;
    }
    for (std::uint32_t at = 0; at < piece.length; at += longestRun)
        if (!take(at, {std::min(longestRun, piece.length - at), piece.content & ~uniform}))
            return;
}

std::uint32_t MomentStore::timedFrom(Id id, std::uint32_t position) const {
    const std::uint32_t all = length(id);
    std::uint32_t found = all;
    // Subtrees without a moment are passed over.
    const std::function<bool(Id, std::uint32_t)> search = [&](Id tree, std::uint32_t at) {
        if (tree == 0 || at + length(tree) <= position || span(tree).latest < 0)
            return false;
        if (!isLeaf(tree))
            return search(nodes_[tree].left, at) ||
                   search(nodes_[tree].right, at + length(nodes_[tree].left));
        const Leaf& runs = leaf(tree);
        for (std::size_t i = 0; i < runs.count; at += runs.runs[i++].length) {
            if (runs.runs[i].moment == 0 || at + runs.runs[i].length <= position)
                continue;
            found = std::max(at, position);
            return true;
        }
        return false;
    };
    search(id, 0);
    return found;
}

std::uint32_t MomentStore::timedBefore(Id id, std::uint32_t position) const {
    std::uint32_t found = length(id);
    const std::function<bool(Id, std::uint32_t)> search = [&](Id tree, std::uint32_t at) {
        if (tree == 0 || at >= position || span(tree).latest < 0)
            return false;
        if (!isLeaf(tree))
            return search(nodes_[tree].right, at + length(nodes_[tree].left)) ||
                   search(nodes_[tree].left, at);
        const Leaf& runs = leaf(tree);
        bool any = false;
        for (std::size_t i = 0; i < runs.count && at < position; at += runs.runs[i++].length) {
            if (runs.runs[i].moment == 0)
                continue;
            found = std::min(at + runs.runs[i].length, position) - 1;
            any = true;
        }
        return any;
    };
    search(id, 0);
    return found;
}

void MomentStore::heard(Id id, std::uint32_t at, std::int32_t ms,
                        std::pair<std::int32_t, std::uint32_t>& best) const {
    const Span bounds = span(id);
    if (id == 0 || bounds.earliest > ms || bounds.latest < best.first)
        return;
    if (!isLeaf(id)) {
        // Most texts run with the recording: the later half holds the answer, and the other one is passed
        // over.
        const std::uint32_t middle = at + length(nodes_[id].left);
        const bool laterFirst = span(nodes_[id].right).earliest <= ms;
        if (laterFirst)
            heard(nodes_[id].right, middle, ms, best);
        heard(nodes_[id].left, at, ms, best);
        return;
    }
    const Leaf& all = leaf(id);
    for (std::size_t i = 0; i < all.count; at += all.runs[i++].length) {
        if (all.runs[i].moment == 0)
            continue;
        const std::int32_t start = moments_[all.runs[i].moment].start;
        if (start <= ms && (start > best.first || (start == best.first && at < best.second)))
            best = {start, at};
    }
}

std::uint32_t MomentStore::heardAt(Id id, std::int32_t ms) const {
    std::pair<std::int32_t, std::uint32_t> best{-1, length(id)};
    heard(id, 0, ms, best);
    return best.second;
}

} // namespace moments
