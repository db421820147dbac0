#include "aids/expansion.h"

#include "editor/text_edits.h"

#include <algorithm>
#include <utility>

namespace aids {

namespace {

constexpr base::TextView blanks = u" \t\r\n\v\u00A0\u202F\uFFFC";
// Signs that end a word. A hyphen and an apostrophe lie within words.
constexpr base::TextView ends = u".,;:!?)]}>\"\u201C\u201D\u00AB\u00BB\u203A\u2018\u2026/\u2013\u2014";
// Signs before which no word has begun.
constexpr base::TextView openings =
    u"([{<\"'\u201C\u201D\u201E\u201A\u2018\u2019\u00AB\u00BB\u2039\u203A\u00BF\u00A1";
constexpr base::TextView separators = u"/\u2013\u2014";
constexpr std::int32_t window = Abbreviations::longestShort + 16; // units before the caret

bool isOneOf(base::TextView signs, char16_t unit) {
    return signs.find(unit) != base::TextView::npos;
}

// The last word of the letters with the signs before it.
base::TextView lastRun(base::TextView letters) {
    const auto end = std::find_if(letters.rbegin(), letters.rend(), [](char16_t unit) {
        return isOneOf(blanks, unit) || isOneOf(separators, unit);
    });
    return letters.substr(static_cast<std::size_t>(letters.rend() - end));
}

} // namespace

void Expansion::typed(base::TextView inserted, const Abbreviations& known) {
    before_.reset();
    if (!options_.expand || known.empty() || inserted.empty() || form_.RTB.SelLength() > 0)
        return;
    const bool endsParagraph = inserted.ends_with(u"\r\n");
    if (!endsParagraph && !isOneOf(blanks, inserted.back()) && !isOneOf(ends, inserted.back()))
        return;
    const std::int32_t end = form_.RTB.SelStart() - (endsParagraph ? 2 : 1);
    const std::int32_t begin = std::max(0, end - window);
    const base::Text before = text_.letters(begin, end - begin);
    base::TextView run = lastRun(before);
    if (begin > 0 && run.size() == before.size())
        return; // longer than any short form
    auto found = known.find(run);
    while (!found && !run.empty() && isOneOf(openings, run.front())) {
        run.remove_prefix(1);
        found = known.find(run);
    }
    if (found)
        replace(end, run, *found);
}

void Expansion::replace(std::int32_t end, base::TextView shortForm, const Abbreviations::Found& found) {
    const FilledText filled = aids::filled(found, fillings);
    if (filled.text.empty())
        return;
    before_ = {text_.ListaUndo().size(), form_.RTB.SelStart()};
    const auto length = static_cast<std::int32_t>(shortForm.size());
    const std::int32_t begin = end - length;
    editor::replaceWord(form_.RTB, text_, begin, length, filled.text);
    if (filled.caret)
        form_.RTB.setSelStart(begin + static_cast<std::int32_t>(*filled.caret));
}

void Expansion::undone() {
    if (before_ && text_.ListaUndo().size() == before_->records)
        form_.RTB.setSelStart(std::exchange(before_, std::nullopt)->caret);
}

} // namespace aids
