#include "editor/stamp_commands.h"

#include "editor/text_edits.h"
#include "lang/words.h"
#include "moments/word_units.h"

#include <algorithm>
#include <utility>

namespace editor {

using lang::operator""_en;

namespace {

// The paragraph without the stamp that it begins with.
base::TextView behindStamp(base::TextView paragraph) {
    if (const auto stamp = moments::stampAt(paragraph, 0))
        paragraph.remove_prefix(static_cast<std::size_t>(stamp->length));
    while (!paragraph.empty() && moments::isBlank(paragraph.front()))
        paragraph.remove_prefix(1);
    return paragraph;
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

std::vector<moments::Stamp> StampCommands::stampsFor(Places places, base::TextView text) {
    std::vector<moments::Stamp> stamps;
    base::Text speaker;
    std::int64_t next = 0; // ms of the next stamp at even distances
    const std::int64_t step = std::int64_t{options_.stampSeconds} * 1000;
    for (std::size_t first = 0; first < text.size();) {
        const base::TextView paragraph =
            text.substr(first, std::min(text.find(u'\n', first), text.size()) - first);
        bool begins = true;
        moments::forEachWord(paragraph, [&](std::size_t at, base::TextView word) {
            if (!std::exchange(begins, false) && places != Places::Seconds)
                return;
            const auto old = moments::stampAt(paragraph, at);
            const auto place = static_cast<std::int32_t>(first + at);
            const auto moment =
                old ? std::optional(moments::Moment{.start = old->ms})
                    : text_.moments().estimate(place, place + static_cast<std::int32_t>(word.size()));
            if (!moment)
                return;
            if (places == Places::Speakers) {
                const base::TextView name = SpeakerOf(behindStamp(paragraph.substr(at)));
                if (name.empty() || name == speaker)
                    return;
                speaker = name;
            }
            if (places == Places::Seconds) {
                if (moment->start < next)
                    return;
                next = (moment->start / step + 1) * step;
            }
            if (!old)
                stamps.push_back({place, 0, moment->start});
        });
        first += paragraph.size() + 1;
    }
    return stamps;
}

void StampCommands::insert(Places places) {
    const base::Text text = text_.letters(0, text_.length());
    std::vector<TextEdit> edits;
    for (const moments::Stamp& stamp : stampsFor(places, text))
        edits.push_back({.position = stamp.position, .inserted = moments::stampText(stamp.ms)});
    makeEdits(form_.RTB, text_, edits);
}

void StampCommands::remove() {
    const base::Text text = text_.letters(0, text_.length());
    std::vector<TextEdit> edits;
    for (const moments::Stamp& stamp : moments::stampsIn(text)) {
        const auto behind = static_cast<std::size_t>(stamp.position + stamp.length);
        const std::int32_t blank = behind < text.size() && text[behind] == u' ' ? 1 : 0;
        edits.push_back({.position = stamp.position, .removed = stamp.length + blank});
    }
    makeEdits(form_.RTB, text_, edits);
}

} // namespace editor
