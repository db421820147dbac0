#include "aids/delivery_rules.h"

#include "aids/letter_case.h"
#include "aids/unclosed.h"
#include "drafts/letters.h"
#include "drafts/names.h"
#include "moments/stamps.h"
#include "moments/word_units.h"

#include <algorithm>

namespace aids {

namespace {

constexpr std::size_t longestMark = 80;  // "[unclear 00:12:34]"
constexpr std::int32_t tolerated = 1000; // ms of a stamp beyond the end, which is rounded

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\u00A0';
}

// The end of a mark: where its bracket closes, if it does nearby.
std::size_t endOfMark(base::TextView paragraph, std::size_t begin, std::size_t length) {
    const base::TextView mark = paragraph.substr(begin, length);
    const char16_t closes = mark.front() == u'[' ? u']' : mark.front() == u'(' ? u')' : u'\0';
    if (closes == u'\0' || mark.back() == closes)
        return begin + length;
    const std::size_t end = paragraph.substr(0, begin + longestMark).find(closes, begin + length);
    return end == base::TextView::npos ? begin + length : end + 1;
}

} // namespace

DeliveryRules::DeliveryRules(base::TextView marks, std::int32_t recordingMs) : recordingMs_(recordingMs) {
    while (!marks.empty()) {
        const std::size_t comma = std::min(marks.find(u','), marks.size());
        if (const base::TextView mark = drafts::stripped(marks.substr(0, comma)); !mark.empty())
            marks_.push_back(lowered(mark));
        marks.remove_prefix(std::min(comma + 1, marks.size()));
    }
}

void DeliveryRules::look(base::TextView paragraph, base::TextView next, std::int32_t position,
                         Findings& findings) {
    lookForMarks(paragraph, position, findings);
    lookForStamps(paragraph, position, findings);
    lookForBlanks(paragraph, position, findings);
    for (const std::size_t at : unclosed(paragraph, next))
        findings.add(FindingKind::Unclosed, paragraph, position, at, 1);
    noteName(paragraph, position);
}

void DeliveryRules::lookForMarks(base::TextView paragraph, std::int32_t position, Findings& findings) const {
    if (marks_.empty())
        return;
    const base::Text small = lowered(paragraph);
    for (const base::Text& mark : marks_) {
        for (std::size_t at = small.find(mark); at != base::Text::npos;) {
            const std::size_t end = endOfMark(paragraph, at, mark.size());
            findings.add(FindingKind::Unclear, paragraph, position, at, end - at);
            at = small.find(mark, end);
        }
    }
}

void DeliveryRules::lookForStamps(base::TextView paragraph, std::int32_t position, Findings& findings) {
    for (const moments::Stamp& stamp : moments::stampsIn(paragraph)) {
        // Without brackets, a time within a sentence may be that of a day.
        const char16_t first = paragraph[static_cast<std::size_t>(stamp.position)];
        if (stamp.position > 0 && first >= u'0' && first <= u'9')
            continue;
        const bool beyond = recordingMs_ > 0 && stamp.ms > recordingMs_ + tolerated;
        if (beyond || stamp.ms < stampMs_)
            findings.add(beyond ? FindingKind::StampBeyond : FindingKind::StampBackwards, paragraph, position,
                         static_cast<std::size_t>(stamp.position), static_cast<std::size_t>(stamp.length));
        // Those behind one that is too late are compared with the one before it.
        if (!beyond)
            stampMs_ = stamp.ms;
    }
}

void DeliveryRules::lookForBlanks(base::TextView paragraph, std::int32_t position, Findings& findings) const {
    for (std::size_t at = 0; at + 1 < paragraph.size(); ++at) {
        if (!isBlank(paragraph[at]) || !isBlank(paragraph[at + 1]))
            continue;
        std::size_t end = at + 2;
        while (end < paragraph.size() && isBlank(paragraph[end]))
            ++end;
        findings.add(FindingKind::Blanks, paragraph, position, at, end - at);
        at = end - 1;
    }
}

void DeliveryRules::noteName(base::TextView paragraph, std::int32_t position) {
    std::size_t begin = 0;
    if (const auto stamp = moments::stampAt(paragraph, 0))
        begin = static_cast<std::size_t>(stamp->length);
    while (begin < paragraph.size() && moments::isBlank(paragraph[begin]))
        ++begin;
    const base::TextView name = drafts::nameAtHead(paragraph.substr(begin)).name;
    if (name.empty())
        return;
    NameUse& use = names_[base::Text(name)];
    if (use.count++ == 0)
        use.position = position + static_cast<std::int32_t>(name.data() - paragraph.data());
}

void DeliveryRules::end(Findings& findings) const {
    for (const SimilarName& similar : similarNames(names_)) {
        Finding finding;
        finding.kind = FindingKind::Speaker;
        finding.position = names_.at(similar.name).position;
        finding.length = static_cast<std::int32_t>(similar.name.size());
        finding.letters = similar.name;
        finding.other = similar.usual;
        findings.add(std::move(finding));
    }
}

} // namespace aids
