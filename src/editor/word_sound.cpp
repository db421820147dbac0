#include "editor/word_sound.h"

#include "lang/words.h"
#include "moments/stamps.h"
#include "moments/word_units.h"

#include <algorithm>

namespace editor {

using lang::operator""_en;

namespace {

constexpr std::int32_t longestWord = 256; // units that are looked at on either side

} // namespace

WordSound::WordSound(Form2& form, UndoRedo& text, const SoundOptions& options)
    : mnuHear("mnuHear", u"&Hear the word"_en, "Alt+Return"),
      mnuToSound("mnuToSound", u"&Caret to the sound"_en, "Alt+Home"),
      mnuSetMoment("mnuSetMoment", u"&Give the word the moment that is heard"_en, "Ctrl+Shift+M"),
      form_(form), text_(text), options_(options) {
    mnuHear.Click = [this] { hear(form_.RTB.SelStart()); };
    mnuToSound.Click = [this] { toSound(); };
    mnuSetMoment.Click = [this] { setMoment(); };
    form_.RTB.CtrlClick = [this](std::int32_t position) { return hear(position); };
    form_.RTB.Clickable = [this](std::int32_t position) { return isHeardByClick(position); };
}

WordSound::Letters WordSound::around(std::int32_t position) {
    const std::int32_t begin = std::max(position - longestWord, 0);
    return {begin, text_.letters(begin, position - begin + longestWord)};
}

std::optional<WordSound::Part> WordSound::partAt(std::int32_t position) {
    const auto [from, text] = around(position);
    const auto place = static_cast<std::size_t>(
        std::clamp<std::int32_t>(position - from, 0, static_cast<std::int32_t>(text.size())));
    for (const moments::Stamp& stamp : moments::stampsIn(text))
        if (static_cast<std::size_t>(stamp.position) <= place &&
            place <= static_cast<std::size_t>(stamp.position + stamp.length))
            return Part{from + stamp.position, stamp.length, stamp.ms, true};
    const auto [begin, length] = moments::wordAround(text, place);
    if (length == 0)
        return std::nullopt;
    const Part word{from + static_cast<std::int32_t>(begin), static_cast<std::int32_t>(length), 0};
    const auto moment = text_.moments().estimate(word.position, word.position + word.length);
    return moment ? std::optional(Part{word.position, word.length, moment->start}) : std::nullopt;
}

std::optional<WordSound::Part> WordSound::heardPart(std::int32_t ms) {
    const auto position = text_.moments().heardAt(ms);
    if (!position)
        return std::nullopt;
    const auto [from, text] = around(*position);
    auto place = static_cast<std::size_t>(*position - from);
    while (true) {
        // Between two words the one before is still the last that was heard, and nobody speaks a stamp.
        while (place > 0 && place < text.size() && moments::isBlank(text[place]))
            --place;
        const auto [begin, length] = moments::wordAround(text, place);
        if (length == 0)
            return std::nullopt;
        if (begin == 0 || !moments::stampAt(text, begin))
            return Part{from + static_cast<std::int32_t>(begin), static_cast<std::int32_t>(length), ms};
        place = begin - 1;
    }
}

bool WordSound::hear(std::int32_t position) {
    const auto part = partAt(position);
    if (part && !part->isStamp && text_.isOfOtherRecording()) {
        ToldOther();
        return true;
    }
    return part && PlayFrom(std::max(part->ms - options_.leadMs, 0));
}

bool WordSound::isHeardByClick(std::int32_t position) {
    const auto part = CanPlay() ? partAt(position) : std::nullopt;
    return part && (part->isStamp || !text_.isOfOtherRecording());
}

void WordSound::toSound() {
    const auto heard = Heard();
    const auto part = heard ? heardPart(*heard) : std::nullopt;
    if (part)
        form_.RTB.setSelStart(part->position);
    form_.RTB.SetFocus();
}

void WordSound::setMoment() {
    const auto heard = Heard();
    if (!heard)
        return;
    const std::int32_t caret = form_.RTB.SelStart();
    const auto [from, text] = around(caret);
    const auto [begin, length] = moments::wordAround(text, static_cast<std::size_t>(caret - from));
    if (length == 0)
        return;
    text_.setMoment(from + static_cast<std::int32_t>(begin), static_cast<std::int32_t>(length),
                    moments::Moment{.start = *heard});
    form_.RTB.besideChanged(caret);
    MomentSet();
}

} // namespace editor
