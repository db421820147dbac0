#include "desktop/text/changed_paragraphs.h"

#include <QTextBlock>
#include <algorithm>
#include <utility>

namespace desktop {

void ChangedParagraphs::note(const QTextDocument& document, int position, int added) {
    const int last = document.blockCount() - 1;
    const QTextBlock end = document.findBlock(position + added);
    const int first = std::max(document.findBlock(position).blockNumber(), 0);
    // For a change at the very end, the document counts a unit that belongs to no paragraph.
    const int tail = end.isValid() ? last - end.blockNumber() : 0;
    first_ = changed_ ? std::min(first_, first) : first;
    tail_ = changed_ ? std::min(tail_, tail) : tail;
    changed_ = true;
}

ChangedParagraphs::Range ChangedParagraphs::take(const QTextDocument& document) {
    const int count = document.blockCount();
    const int before = std::exchange(known_, count);
    changed_ = false;
    if (std::exchange(whole_, false))
        return {0, before, count, true};
    const int first = std::min({first_, before, count});
    const int tail = std::min({tail_, before - first, count - first});
    return {first, before - first - tail, count - first - tail, false};
}

} // namespace desktop
