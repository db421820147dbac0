#include "editor/doubts.h"

#include "base/numbers.h"

#include <algorithm>

namespace editor {

using lang::operator""_en;

namespace {

constexpr std::int32_t leadMs = 500;      // a doubtful word is heard with what comes before it
constexpr int countAfter = 300;           // ms, so that fast typing does not count all the time
constexpr std::int32_t longestWord = 256; // units that are looked at on either side
constexpr lang::English countCaption = u"Do&ubtful words (%1)"_en;

} // namespace

Doubts::Doubts(Form2& form, UndoRedo& text, const DoubtOptions& options, lang::Words& words,
               platform::EventLoop& loop)
    : mnuDoubts_("mnuDoubts", countCaption), mnuNext_("mnuNextDoubt", u"Next dou&btful word"_en, "Alt+Down"),
      mnuBefore_("mnuDoubtBefore", u"Doubtful word befo&re"_en, "Alt+Up"),
      mnuKeep_("mnuKeepWord", u"Keep the do&ubtful word"_en, "Ctrl+Shift+K"), form_(form), text_(text),
      options_(options), words_(words), count_(loop) {
    mnuDoubts_.items = {&mnuNext_, &mnuBefore_, &mnuKeep_};
    mnuNext_.Click = [this] { goToNext(); };
    mnuBefore_.Click = [this] { goToTheOneBefore(); };
    mnuKeep_.Click = [this] { keep(); };
    count_.Tick = [this] { showCount(); };
    // Other marks are in the view as well.
    form_.RTB.MarksIn = [this, others = form_.RTB.MarksIn](std::int32_t begin, std::int32_t end) {
        std::vector<platform::MarkedPart> marks = others(begin, end);
        const std::vector<platform::MarkedPart> own = marksIn(begin, end);
        marks.insert(marks.end(), own.begin(), own.end());
        return marks;
    };
}

std::vector<platform::MarkedPart> Doubts::marksIn(std::int32_t begin, std::int32_t end) {
    std::vector<platform::MarkedPart> marks;
    for (const Doubt& doubt : doubtsIn(begin, end))
        marks.push_back({doubt.position, doubt.length, platform::Mark::Doubtful});
    return marks;
}

void Doubts::start() {
    words_.follow([this] { showCount(); });
}

void Doubts::changed() {
    count_.setInterval(countAfter);
}

void Doubts::showCount() {
    count_.setInterval(0);
    const auto number = base::countText(doubtsIn(0, text_.length()).size());
    mnuDoubts_.caption = words_(countCaption, {number});
}

std::vector<Doubts::Doubt> Doubts::doubtsIn(std::int32_t begin, std::int32_t end) {
    std::vector<Doubt> doubts;
    std::int32_t at = begin;
    for (const moments::Timed::Run& run : text_.moments().timed(begin, end - begin).runs) {
        const auto length = static_cast<std::int32_t>(run.length);
        const bool doubtful = run.moment && run.moment->confidence != moments::Moment::noConfidence &&
                              run.moment->confidence < options_.percent;
        const bool goesOn = doubtful && !doubts.empty() &&
                            doubts.back().position + doubts.back().length == at &&
                            doubts.back().moment == *run.moment;
        if (goesOn)
            doubts.back().length += length;
        else if (doubtful)
            doubts.push_back({at, length, *run.moment});
        at += length;
    }
    return doubts;
}

void Doubts::go(const std::optional<Doubt>& doubt) {
    form_.RTB.SetFocus();
    if (!doubt)
        return;
    form_.RTB.setSelStart(doubt->position);
    form_.RTB.setSelLength(doubt->length);
    form_.RTB.scrollTo(doubt->position, doubt->length);
    PlayFrom(std::max(doubt->moment.start - leadMs, 0));
}

void Doubts::goToNext() {
    const std::vector<Doubt> doubts = doubtsIn(form_.RTB.SelStart() + form_.RTB.SelLength(), text_.length());
    go(doubts.empty() ? std::nullopt : std::optional(doubts.front()));
}

void Doubts::goToTheOneBefore() {
    const std::vector<Doubt> doubts = doubtsIn(0, form_.RTB.SelStart());
    go(doubts.empty() ? std::nullopt : std::optional(doubts.back()));
}

// The caret may stand anywhere in the word, or behind it.
void Doubts::keep() {
    const std::int32_t caret = form_.RTB.SelStart();
    const auto doubts =
        doubtsIn(std::max(caret - longestWord, 0), std::min(caret + longestWord, text_.length()));
    const auto here = std::find_if(doubts.begin(), doubts.end(), [&](const Doubt& doubt) {
        return doubt.position <= caret && caret <= doubt.position + doubt.length;
    });
    if (here == doubts.end())
        return;
    moments::Moment sure = here->moment;
    sure.confidence = moments::Moment::noConfidence;
    text_.moments().set(here->position, here->length, sure);
    form_.RTB.besideChanged(here->position);
    form_.RTB.marksChanged(here->position, here->length);
    showCount();
    Kept();
}

} // namespace editor
