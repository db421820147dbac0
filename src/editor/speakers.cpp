#include "editor/speakers.h"

#include "moments/stamps.h"
#include "moments/word_units.h"

#include <algorithm>
#include <map>

namespace editor {

namespace {

constexpr base::TextView paragraphEnd = u"\r\n";
constexpr std::int32_t firstPart = 256;   // units that are searched at once: most paragraphs are short
constexpr std::int32_t partLength = 4096; // units that are searched at once in a long one

std::size_t withoutBlanks(base::TextView text, std::size_t from) {
    while (from < text.size() && moments::isBlank(text[from]))
        ++from;
    return from;
}

} // namespace

Speakers::Paragraph Speakers::paragraph(base::TextView all, std::size_t begin, std::size_t end,
                                        base::TextView speaker, std::int32_t allBegin) const {
    if (const auto stamp = moments::stampAt(all.substr(begin, end - begin), 0))
        begin += withoutBlanks(all.substr(begin, end - begin), static_cast<std::size_t>(stamp->length));
    const base::TextView written = all.substr(begin, end - begin);
    Paragraph found{static_cast<std::int32_t>(begin), static_cast<std::int32_t>(end), {}, {}, false};
    const auto isBold = [&](std::size_t place) {
        return form_.RTB.isBold(allBegin + static_cast<std::int32_t>(begin + place));
    };
    const auto colon = written.find(u':');
    bool boldName = colon != base::TextView::npos && isBold(0) && isBold(colon);
    if (boldName) {
        const std::size_t said = withoutBlanks(written, colon + 1);
        boldName = said == written.size() || !isBold(said);
    }
    found.name = NameIn(written, boldName ? colon + 1 : 0);
    found.speaker = found.name.length == 0 ? speaker : written.substr(found.name.begin, found.name.length);
    found.says = withoutBlanks(written, found.name.behind) < written.size();
    return found;
}

std::vector<Speakers::Paragraph> Speakers::paragraphs(const base::Text& text) {
    std::vector<Paragraph> all;
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(text.find(paragraphEnd, begin), text.size());
        const base::TextView speaker = all.empty() ? base::TextView() : base::TextView(all.back().speaker);
        all.push_back(paragraph(text, begin, end, speaker));
        if (end == text.size())
            return all;
        begin = end + paragraphEnd.size();
    }
}

const Speakers::Paragraph* Speakers::at(const std::vector<Paragraph>& all, std::int32_t position) {
    const auto hit =
        std::find_if(all.begin(), all.end(), [&](const Paragraph& each) { return position <= each.end; });
    return hit == all.end() ? &all.back() : &*hit;
}

std::vector<Speakers::Speaker> Speakers::all() {
    std::vector<Speaker> speakers;
    std::map<base::Text, std::size_t> places;
    for (const Paragraph& each : paragraphs(text_.letters(0, text_.length()))) {
        if (each.speaker.empty())
            continue;
        const auto [known, isNew] = places.try_emplace(each.speaker, speakers.size());
        if (isNew)
            speakers.push_back({each.speaker, 0});
        speakers[known->second].paragraphs += each.says ? 1 : 0;
    }
    return speakers;
}

base::Text Speakers::atCaret() {
    const std::int32_t caret = form_.RTB.SelStart();
    // The paragraph of the caret, and those before it until one begins with a name.
    std::int32_t begin = beginOfParagraph(caret);
    for (std::int32_t behind = endOfParagraph(caret);; begin = beginOfParagraph(behind)) {
        const base::Text letters = text_.letters(begin, behind - begin);
        if (const Paragraph here = paragraph(letters, 0, letters.size(), {}, begin); !here.speaker.empty())
            return here.speaker;
        if (begin == 0)
            return {};
        behind = begin - static_cast<std::int32_t>(paragraphEnd.size());
    }
}

std::int32_t Speakers::beginOfParagraph(std::int32_t position) {
    std::int32_t part = firstPart;
    for (std::int32_t end = position; end > 0; part = partLength) {
        const std::int32_t begin = std::max(0, end - part);
        // Both units of an end may lie in two parts.
        const auto place = text_.letters(begin, std::min(end + 1, position) - begin).rfind(paragraphEnd);
        if (place != base::Text::npos)
            return begin + static_cast<std::int32_t>(place + paragraphEnd.size());
        end = begin;
    }
    return 0;
}

std::int32_t Speakers::endOfParagraph(std::int32_t position) {
    for (std::int32_t begin = position; begin < text_.length(); begin += partLength)
        if (const auto place = text_.letters(begin, partLength).find(paragraphEnd.front());
            place != base::Text::npos)
            return begin + static_cast<std::int32_t>(place);
    return text_.length();
}

void Speakers::rename(base::TextView from, base::TextView to) {
    const base::Text text = text_.letters(0, text_.length());
    const bool looksLikeName = NameIn(base::Text(to) + u": x", 0).length > 0;
    std::vector<TextEdit> edits;
    for (const Paragraph& each : paragraphs(text)) {
        if (each.name.length == 0 || each.speaker != from)
            continue;
        if (looksLikeName) {
            replaceName(edits, each, to);
            continue;
        }
        const auto head = static_cast<std::int32_t>(each.name.behind - each.name.begin);
        const std::int32_t begin = each.begin + static_cast<std::int32_t>(each.name.begin);
        edits.push_back({.position = begin, .removed = head});
        edits.push_back(newName(begin + head, {}, to));
    }
    makeEdits(form_.RTB, text_, edits);
}

void Speakers::give(base::TextView name) {
    const base::Text text = text_.letters(0, text_.length());
    const std::vector<Paragraph> all = paragraphs(text);
    const std::int32_t caret = form_.RTB.SelStart();
    const Paragraph& here = *at(all, caret);
    const bool atEnd = caret >= here.begin &&
                       withoutBlanks(base::TextView(text).substr(0, static_cast<std::size_t>(here.end)),
                                     static_cast<std::size_t>(caret)) == static_cast<std::size_t>(here.end);
    const bool begins = here.says && atEnd && form_.RTB.SelLength() == 0;
    std::vector<TextEdit> edits;
    if (begins)
        edits.push_back(newName(here.end, paragraphEnd, name));
    else if (here.name.length == 0)
        edits.push_back(newName(here.begin, {}, name));
    else if (here.speaker != name)
        replaceName(edits, here, name);
    // Whoever went on without a name would go on as the new speaker.
    const auto next = std::find_if(all.begin() + (&here - all.data()) + 1, all.end(),
                                   [](const Paragraph& each) { return each.says || each.name.length > 0; });
    if (!edits.empty() && next != all.end() && next->name.length == 0 && !next->speaker.empty() &&
        next->speaker != name)
        edits.push_back(newName(next->begin, {}, next->speaker));
    if (begins)
        form_.RTB.setSelStart(here.end);
    makeEdits(form_.RTB, text_, edits);
}

// The new name comes behind the old one, whose font it takes.
void Speakers::replaceName(std::vector<TextEdit>& edits, const Paragraph& paragraph, base::TextView name) {
    const auto begin = paragraph.begin + static_cast<std::int32_t>(paragraph.name.begin);
    const auto length = static_cast<std::int32_t>(paragraph.name.length);
    edits.push_back({.position = begin, .removed = length});
    edits.push_back({.position = begin + length, .inserted = base::Text(name)});
}

TextEdit Speakers::newName(std::int32_t position, base::TextView before, base::TextView name) {
    return {.position = position,
            .inserted = base::Text(before) + base::Text(name) + u": ",
            .boldBegin = static_cast<std::int32_t>(before.size()),
            .boldLength = static_cast<std::int32_t>(name.size()) + 1};
}

} // namespace editor
