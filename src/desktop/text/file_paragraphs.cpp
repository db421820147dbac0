#include "desktop/text/file_paragraphs.h"

#include <QTextBlock>
#include <algorithm>
#include <utility>

namespace desktop {

namespace {

bool mayBeRest(const EditorDocument& document, const QTextBlock& block) {
    return document.pageBreakBefore(block) == PageBreak::InParagraph;
}

bool mayBeginSection(const QTextBlock& block) {
    return block.blockFormat().intProperty(SectionIndex) !=
           block.previous().blockFormat().intProperty(SectionIndex);
}

} // namespace

rtf::Document FileParagraphs::takeAll(const EditorDocument& document) {
    map_ = {};
    return rtfOf(document, map_);
}

std::optional<FileParagraphs::Change> FileParagraphs::take(const EditorDocument& document,
                                                           const ChangedParagraphs::Range& range) {
    const int shift = range.inserted - range.removed;
    int begin = range.first;
    int end = range.first + range.inserted;
    // The change includes the paragraph before if it begins, or began, with the rest of that one.
    const QTextBlock first = document.findBlockByNumber(begin);
    if (begin > 0 && first.isValid() && (mayBeRest(document, first) || mayBeginSection(first)))
        --begin;
    while (begin > 0 && isBoundToPrevious(begin))
        --begin;
    // Whether a paragraph begins a page depends on the one before.
    QTextBlock behind = document.findBlockByNumber(end);
    if (behind.isValid() && behind.blockFormat().hasProperty(PageBreakNumber)) {
        ++end;
        behind = behind.next();
    }
    for (; behind.isValid() && (isRest(end - shift) || mayBeRest(document, behind)); behind = behind.next())
        ++end;
    const int endBefore = end - shift;
    Change change;
    change.begin = begin;
    change.end = end;
    change.first = static_cast<std::uint32_t>(begin) - restsBefore(begin);
    change.removed = static_cast<std::uint32_t>(endBefore) - restsBefore(endBefore) - change.first;
    FileMap part;
    part.sections = map_.sections;
    for (int& start : part.sections)
        start = start < begin ? start : -1;
    if (begin < end)
        change.part = rtfOf(document, begin, end, part);
    if (!splice(std::move(part), begin, endBefore, shift))
        return std::nullopt;
    return change;
}

bool FileParagraphs::isRest(int paragraph) const {
    return std::binary_search(map_.rests.begin(), map_.rests.end(), paragraph);
}

// The first paragraph of a part cannot say that a section without contents begins there.
bool FileParagraphs::isBoundToPrevious(int paragraph) const {
    return isRest(paragraph) ||
           std::find(map_.sections.begin(), map_.sections.end(), paragraph) != map_.sections.end();
}

std::uint32_t FileParagraphs::restsBefore(int paragraph) const {
    const auto end = std::lower_bound(map_.rests.begin(), map_.rests.end(), paragraph);
    return static_cast<std::uint32_t>(end - map_.rests.begin());
}

// Replaces what is known of the paragraphs from `begin` to `end`, numbered as before the change; those behind
// have moved by `shift`. Returns false if a section now begins elsewhere.
bool FileParagraphs::splice(FileMap part, int begin, int end, int shift) {
    const std::size_t known = map_.sections.size();
    for (std::size_t i = 0; i < known; ++i) {
        const int before = map_.sections[i];
        int& now = part.sections[i];
        const bool isBehind = before >= end;
        if (isBehind ? now != -1 : before >= begin && now == -1)
            return false;
        if (isBehind)
            now = before + shift;
    }
    const auto from = std::lower_bound(map_.rests.begin(), map_.rests.end(), begin);
    const auto to = std::lower_bound(from, map_.rests.end(), end);
    std::for_each(to, map_.rests.end(), [&](int& rest) { rest += shift; });
    const auto at = map_.rests.erase(from, to);
    map_.rests.insert(at, part.rests.begin(), part.rests.end());
    map_.sections = std::move(part.sections);
    return true;
}

} // namespace desktop
