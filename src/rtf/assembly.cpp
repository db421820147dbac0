#include "rtf/assembly.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace rtf {

namespace {

// The index of an equal value; appends the value if there is none. A linear search suffices, because
// documents have few formats, fonts and links.
template <typename Value>
std::uint32_t indexOf(std::vector<Value>& values, const Value& value) {
    const auto hit = std::find(values.begin(), values.end(), value);
    const auto index = static_cast<std::uint32_t>(hit - values.begin());
    if (hit == values.end())
        values.push_back(value);
    return index;
}

} // namespace

Assembly::Assembly(const Document& frame) {
    result_.pageWords = frame.pageWords;
    result_.head = frame.head;
    result_.keptTables = frame.keptTables;
    result_.lastParagraphEnds = frame.lastParagraphEnds;
}

void Assembly::take(const Document& source) {
    source_ = &source;
    place_ = {};
    formats_.clear();
    paragraphFormats_.clear();
}

void Assembly::seek(std::size_t index) {
    if (index < place_.paragraph)
        place_ = {};
    for (; place_.paragraph < index; ++place_.paragraph) {
        place_.run += source_->paragraphs[place_.paragraph].runs;
        place_.unit += source_->paragraphs[place_.paragraph].length;
    }
}

void Assembly::append(std::size_t index) {
    assert(source_ && index < source_->paragraphs.size());
    seek(index);
    Paragraph paragraph = source_->paragraphs[index];
    result_.text.append(source_->text, place_.unit, paragraph.length);
    for (std::size_t run = place_.run; run < place_.run + paragraph.runs; ++run) {
        Run copy = source_->runs[run];
        copy.format = formatOf(copy.format);
        if (copy.kept != none) {
            result_.kept.push_back(source_->kept[copy.kept]);
            copy.kept = static_cast<std::uint32_t>(result_.kept.size() - 1);
        }
        result_.runs.push_back(copy);
    }
    paragraph.format = paragraphFormatOf(paragraph.format);
    paragraph.section = sectionOf(index);
    result_.paragraphs.push_back(paragraph);
}

std::uint32_t Assembly::formatOf(std::uint32_t index) {
    const auto [entry, isNew] = formats_.try_emplace(index);
    if (isNew) {
        CharFormat format = source_->formats[index];
        format.font = indexOf(result_.fonts, source_->fonts[format.font]);
        if (format.link != none)
            format.link = indexOf(result_.links, source_->links[format.link]);
        entry->second = indexOf(result_.formats, format);
    }
    return entry->second;
}

std::uint32_t Assembly::paragraphFormatOf(std::uint32_t index) {
    const auto [entry, isNew] = paragraphFormats_.try_emplace(index);
    if (isNew)
        entry->second = indexOf(result_.paragraphFormats, source_->paragraphFormats[index]);
    return entry->second;
}

// Every document starts with a section, even a fragment. Appended to other paragraphs, that start only counts
// as a new section if the section has contents.
std::uint32_t Assembly::sectionOf(std::size_t index) {
    const std::uint32_t section = source_->paragraphs[index].section;
    if (section == none ||
        (index == 0 && !result_.paragraphs.empty() && source_->sections[section] == Section{}))
        return none;
    result_.sections.push_back(source_->sections[section]);
    return static_cast<std::uint32_t>(result_.sections.size() - 1);
}

Document Assembly::finish() {
    source_ = nullptr;
    return std::exchange(result_, {});
}

} // namespace rtf
