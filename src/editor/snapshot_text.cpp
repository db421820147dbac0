#include "editor/snapshot_text.h"

#include <algorithm>
#include <cassert>

namespace editor {

std::uint32_t SnapshotStore::length(Id id) const {
    return id == 0 ? 0 : isLeaf(id) ? leaf(id).length : nodes_[id].length;
}

SnapshotStore::Owned SnapshotStore::retain(Id id) {
    if (isLeaf(id))
        ++leaves_[id & ~leafFlag].references;
    else if (id != 0)
        ++nodes_[id].references;
    return id;
}

void SnapshotStore::release(Owned id) {
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

SnapshotStore::Owned SnapshotStore::makeLeaf(base::TextView text) {
    if (text.empty())
        return 0;
    const std::uint32_t number = leaves_.take();
    Leaf& leaf = leaves_[number];
    leaf.references = 1;
    leaf.length = static_cast<std::uint32_t>(text.size());
    std::copy(text.begin(), text.end(), leaf.units.begin());
    return number | leafFlag;
}

SnapshotStore::Owned SnapshotStore::makeNode(Owned left, Owned right) {
    const std::uint32_t total = length(left) + length(right);
    if (total <= capacity) { // then both are leaves
        std::array<char16_t, capacity> units{};
        char16_t* to = units.data();
        copy(left, 0, length(left), to);
        copy(right, 0, length(right), to);
        release(left);
        release(right);
        return makeLeaf({units.data(), total});
    }
    const std::uint32_t number = nodes_.take();
    Node& node = nodes_[number];
    node.references = 1;
    node.height = (std::max(height(left), height(right)) + 1) & 63U;
    node.length = total;
    node.left = left;
    node.right = right;
    return number;
}

SnapshotStore::Owned SnapshotStore::build(base::TextView text) {
    if (text.size() <= capacity)
        return makeLeaf(text);
    const std::size_t half = text.size() / 2;
    const Owned left = build(text.substr(0, half));
    return makeNode(left, build(text.substr(half)));
}

SnapshotStore::Owned SnapshotStore::replaced(Id id, std::uint32_t position, std::uint32_t removed,
                                             base::TextView inserted) {
    const std::uint32_t all = length(id);
    if (removed == all)
        return build(inserted);
    if (removed == 0 && inserted.empty())
        return retain(id);
    if (isLeaf(id)) {
        base::Text text(leaf(id).units.data(), all);
        text.replace(position, removed, inserted);
        return build(text);
    }
    const Node node = nodes_[id]; // a copy, because creating a node may move the nodes
    const std::uint32_t middle = length(node.left);
    const std::uint32_t end = position + removed;
    if (end <= middle)
        return join(replaced(node.left, position, removed, inserted), retain(node.right));
    if (position >= middle)
        return join(retain(node.left), replaced(node.right, position - middle, removed, inserted));
    const Owned left = replaced(node.left, position, middle - position, inserted);
    return join(left, replaced(node.right, 0, end - middle, {}));
}

void SnapshotStore::copy(Id id, std::uint32_t position, std::uint32_t count, char16_t*& to) const {
    if (count == 0)
        return;
    if (isLeaf(id)) {
        to = std::copy_n(leaf(id).units.begin() + position, count, to);
        return;
    }
    const Node& node = nodes_[id];
    const std::uint32_t middle = length(node.left);
    const std::uint32_t fromLeft = position < middle ? std::min(count, middle - position) : 0;
    copy(node.left, position, fromLeft, to);
    copy(node.right, std::max(position, middle) - middle, count - fromLeft, to);
}

SnapshotText::SnapshotText(SnapshotStore& store, base::TextView text)
    : store_(&store), root_(store.build(text)) {}

base::Text SnapshotText::text(std::int32_t position, std::int32_t count) const {
    const std::int32_t from = std::clamp(position, 0, length());
    const std::int32_t size = std::clamp(count, 0, length() - from);
    base::Text result(static_cast<std::size_t>(size), u'\0');
    char16_t* to = result.data();
    store_->copy(root_, static_cast<std::uint32_t>(from), static_cast<std::uint32_t>(size), to);
    return result;
}

void SnapshotText::replace(std::int32_t position, std::int32_t removed, base::TextView inserted) {
    assert(position >= 0 && removed >= 0 && removed <= length() - position);
    if (removed > 0 && !inserted.empty()) {
        const base::Text before = text(position, removed);
        const auto [old, fresh] =
            std::mismatch(before.begin(), before.end(), inserted.begin(), inserted.end());
        const auto same = old - before.begin();
        const base::TextView oldRest = base::TextView(before).substr(static_cast<std::size_t>(same));
        inserted.remove_prefix(static_cast<std::size_t>(same));
        const auto tail = std::mismatch(oldRest.rbegin(), oldRest.rend(), inserted.rbegin(), inserted.rend());
        const auto sameBehind = tail.first - oldRest.rbegin();
        inserted.remove_suffix(static_cast<std::size_t>(sameBehind));
        position += static_cast<std::int32_t>(same);
        removed -= static_cast<std::int32_t>(same + sameBehind);
    }
    const auto root = store_->replaced(root_, static_cast<std::uint32_t>(position),
                                       static_cast<std::uint32_t>(removed), inserted);
    store_->release(root_);
    root_ = root;
}

} // namespace editor
