#include "desktop/text/changed_stretch.h"

#include "desktop/text/text_units.h"

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

// Merges two successive changes into one range. The second counts positions in the text that the first one
// left.
ChangedStretch::Range joined(const ChangedStretch::Range& first, const ChangedStretch::Range& second) {
    const std::int32_t begin = std::min(first.begin, second.begin);
    const std::int32_t end = std::max(first.begin + first.added, second.begin + second.removed);
    return {begin, end - begin + first.removed - first.added, end - begin + second.added - second.removed};
}

} // namespace

// Nobody reports how many of the removed units were paragraph ends, which count twice. But the text after the
// change is the same, and the earlier length is known.
void ChangedStretch::note(const QTextDocument& document, int position, int removed, int added) {
    const std::int32_t begin = programPosition(document, position);
    const std::int32_t end = programPosition(document, position + added);
    const std::int32_t length = programLength(document);
    add({{begin, std::max(length_ - (length - end) - begin, 0), end - begin}, {position, removed, added}});
    length_ = length;
}

void ChangedStretch::noteAll(const QTextDocument& document) {
    const std::int32_t length = programLength(document);
    add({{0, length_, length}, {}});
    both_.document = {0, 0, document.characterCount() - 1};
    length_ = length;
}

void ChangedStretch::add(const Both& change) {
    both_ = std::exchange(isEmpty_, false)
                ? change
                : Both{joined(both_.program, change.program), joined(both_.document, change.document)};
}

ChangedStretch::Both ChangedStretch::take() {
    isEmpty_ = true;
    return std::exchange(both_, {});
}

} // namespace desktop
