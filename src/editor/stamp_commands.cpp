#include "editor/stamp_commands.h"

#include "base/carry_on.h"
#include "lang/words.h"
#include "moments/stamps.h"
#include "moments/word_units.h"

#include <utility>

namespace editor {

using lang::operator""_en;

namespace {

constexpr std::size_t longestName = 40; // units of a speaker's name in front of its colon

// The speaker with whom a paragraph begins, be it behind a stamp; empty for none.
base::TextView speakerOf(base::TextView paragraph) {
    if (const auto stamp = moments::stampAt(paragraph, 0))
        paragraph.remove_prefix(static_cast<std::size_t>(stamp->length));
    while (!paragraph.empty() && moments::isBlank(paragraph.front()))
        paragraph.remove_prefix(1);
    const auto colon = paragraph.find(u':');
    const bool isName = colon != base::TextView::npos && colon > 0 && colon <= longestName &&
                        (colon + 1 == paragraph.size() || moments::isBlank(paragraph[colon + 1]));
    return isName ? paragraph.substr(0, colon) : base::TextView();
}

} // namespace

StampCommands::StampCommands(Form2& form, UndoRedo& text, const SoundOptions& options)
    : mnuStamps("mnuStamps", u"&Time stamps"_en),
      mnuStampParagraphs("mnuStampParagraphs", u"Insert at every &paragraph"_en),
      mnuStampSeconds("mnuStampSeconds", u"Insert at even &distances"_en),
      mnuStampSpeakers("mnuStampSpeakers", u"Insert at each change of &speaker"_en),
      mnuStampRemove("mnuStampRemove", u"&Remove the stamps"_en), form_(form), text_(text),
      options_(options) {
    mnuStamps.items = {&mnuStampParagraphs, &mnuStampSeconds, &mnuStampSpeakers, &mnuStampLine,
                       &mnuStampRemove};
    mnuStampParagraphs.Click = [this] { insert(Places::Paragraphs); };
    mnuStampSeconds.Click = [this] { insert(Places::Seconds); };
    mnuStampSpeakers.Click = [this] { insert(Places::Speakers); };
    mnuStampRemove.Click = [this] { remove(); };
}

// From the end to the beginning, so that the places before a stamp stay what they are.
void StampCommands::insert(Places places) {
    const base::Text text = text_.letters(0, text_.length());
    std::vector<std::pair<std::int32_t, std::int32_t>> stamps; // place and time
    base::Text speaker;
    std::int64_t next = 0; // ms of the next stamp at even distances
    std::size_t paragraph = base::Text::npos;
    moments::forEachWord(text, [&](std::size_t begin, base::TextView word) {
        const auto newline = begin == 0 ? base::Text::npos : text.rfind(u'\n', begin - 1);
        const std::size_t first = newline == base::Text::npos ? 0 : newline + 1;
        const bool begins = std::exchange(paragraph, first) != first;
        if (places != Places::Seconds && !begins)
            return;
        const auto place = static_cast<std::int32_t>(begin);
        const auto moment = text_.moments().estimate(place, place + static_cast<std::int32_t>(word.size()));
        if (!moment || moments::stampAt(text, begin))
            return;
        if (places == Places::Speakers) {
            const base::TextView name = speakerOf(base::TextView(text).substr(first));
            if (name.empty() || name == speaker)
                return;
            speaker = name;
        }
        if (places == Places::Seconds) {
            if (moment->start < next)
                return;
            const std::int64_t step = std::int64_t{options_.stampSeconds} * 1000;
            next = (moment->start / step + 1) * step;
        }
        stamps.emplace_back(place, moment->start);
    });
    form_.RTB.together([&] {
        for (auto stamp = stamps.rbegin(); stamp != stamps.rend(); ++stamp)
            base::carryOn([&] {
                form_.RTB.setSelStart(stamp->first);
                form_.RTB.setSelText(moments::stampText(stamp->second));
            });
    });
}

void StampCommands::remove() {
    const base::Text text = text_.letters(0, text_.length());
    const std::vector<moments::Stamp> stamps = moments::stampsIn(text);
    form_.RTB.together([&] {
        for (auto stamp = stamps.rbegin(); stamp != stamps.rend(); ++stamp)
            base::carryOn([&] {
                const auto behind = static_cast<std::size_t>(stamp->position + stamp->length);
                form_.RTB.setSelStart(stamp->position);
                form_.RTB.setSelLength(stamp->length +
                                       (behind < text.size() && text[behind] == u' ' ? 1 : 0));
                form_.RTB.setSelText({});
            });
    });
}

} // namespace editor
