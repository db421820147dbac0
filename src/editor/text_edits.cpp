#include "editor/text_edits.h"

#include "base/carry_on.h"

#include <algorithm>

namespace editor {

namespace {

void select(platform::RichText& rtb, std::int32_t position, std::int32_t length) {
    rtb.setSelStart(position);
    rtb.setSelLength(length);
}

bool isFirstOfPair(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

void makeBold(platform::RichText& rtb, const TextEdit& edit) {
    select(rtb, edit.position, static_cast<std::int32_t>(edit.inserted.size()));
    rtb.setSelBold(false);
    select(rtb, edit.position + edit.boldBegin, edit.boldLength);
    rtb.setSelBold(true);
}

} // namespace

// From the end to the beginning, so that the positions before an edit stay what they are.
void makeEdits(platform::RichText& rtb, UndoRedo& text, const std::vector<TextEdit>& edits) {
    text.asOneStep([&] {
        for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
            base::carryOn([&] {
                select(rtb, edit->position, edit->removed);
                rtb.setSelText(edit->inserted);
                const auto added = static_cast<std::int32_t>(edit->inserted.size());
                text.moments().set(edit->position, added, edit->moment);
                if (edit->boldLength > 0)
                    makeBold(rtb, *edit);
            });
    });
}

// Only the letters that differ are replaced, so that those around them lend the new ones their format, now
// and when it is undone. The new ones come before the old ones go: a record of undo holds one of both.
void replaceWord(platform::RichText& rtb, UndoRedo& text, std::int32_t position, std::int32_t length,
                 base::TextView with) {
    const base::Text word = text.letters(position, length);
    const base::TextView before = word;
    auto begin = static_cast<std::size_t>(
        std::mismatch(before.begin(), before.end(), with.begin(), with.end()).first - before.begin());
    if (begin > 0 && isFirstOfPair(before[begin - 1]))
        --begin;
    const base::TextView rest = before.substr(begin);
    const base::TextView fresh = with.substr(begin);
    auto same = static_cast<std::size_t>(
        std::mismatch(rest.rbegin(), rest.rend(), fresh.rbegin(), fresh.rend()).first - rest.rbegin());
    if (same > 0 && same < rest.size() && isFirstOfPair(rest[rest.size() - same - 1]))
        --same;
    // At the beginning of the word, one of its letters has to be before the new ones.
    if (begin == 0 && same == before.size())
        --same;
    const std::int32_t end = position + length - static_cast<std::int32_t>(same);
    const base::TextView inserted = fresh.substr(0, fresh.size() - same);
    text.asOneStep([&] {
        base::carryOn([&] {
            std::optional<moments::Moment> moment = text.moments().first(position, position + length);
            if (moment)
                moment->confidence = moments::Moment::noConfidence;
            select(rtb, end, 0);
            rtb.setSelText(inserted);
            text.moments().set(end, static_cast<std::int32_t>(inserted.size()), moment);
            select(rtb, position + static_cast<std::int32_t>(begin),
                   static_cast<std::int32_t>(rest.size() - same));
            rtb.setSelText({});
        });
    });
}

} // namespace editor
