#include "desktop/editor/changed_stretch.h"

#include "desktop/editor/text_units.h"

#include <algorithm>
#include <utility>

namespace desktop {

// How many of the units that went were ends of paragraphs, and so two units, nobody tells. But what stands
// behind the change has stayed, and the length before it is known.
void ChangedStretch::note(const QTextDocument& document, int position, int added) {
    const std::int32_t begin = programPosition(document, position);
    const std::int32_t end = programPosition(document, position + added);
    const std::int32_t length = programLength(document);
    add({begin, std::max(length_ - (length - end) - begin, 0), end - begin});
    length_ = length;
}

void ChangedStretch::noteAll(const QTextDocument& document) {
    const std::int32_t length = programLength(document);
    add({0, length_, length});
    length_ = length;
}

void ChangedStretch::add(Range change) {
    if (std::exchange(isEmpty_, false)) {
        range_ = change;
        return;
    }
    const std::int32_t begin = std::min(range_.begin, change.begin);
    const std::int32_t end = std::max(range_.begin + range_.added, change.begin + change.removed);
    range_ = {begin, end - begin + range_.removed - range_.added,
              end - begin + change.added - change.removed};
}

ChangedStretch::Range ChangedStretch::take() {
    isEmpty_ = true;
    return std::exchange(range_, {});
}

} // namespace desktop
